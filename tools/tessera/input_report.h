// The child windows, the menu and the cursor as text.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "backends/headless/headless_list_box.h"
#include "platform/edit_box.h"
#include "platform/window.h"

namespace tessera {

std::string describeEdit(const EditBox& box);
// A line for the list and one for each of its items.
std::vector<std::string> describeList(const HeadlessListBox& list);
// An item a line, two blanks for each menu that it lies in.
std::vector<std::string> describeMenu(const std::vector<PopupMenuItem>& items);
std::string_view cursorName(Cursor cursor);

}  // namespace tessera
