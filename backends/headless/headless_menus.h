// Popup menus with scripted choices.

#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/popup_menu.h"

namespace tessera {

class HeadlessMenus {
 public:
  // What the user picks in the next menu; 0: nothing.
  void answerNext(std::int32_t code) { answer_ = code; }
  // Shows `items` and gives the answer, once. A code that no item bears which can be picked is no choice.
  std::int32_t track(std::span<const PopupMenuItem> items);
  // As it was shown; empty before the first one.
  const std::vector<PopupMenuItem>& last() const { return last_; }

 private:
  std::int32_t answer_ = 0;
  std::vector<PopupMenuItem> last_;
};

}  // namespace tessera
