// The keys of the viewer, as its help shows them.

#pragma once

#include <array>
#include <string_view>

namespace tessera {

struct KeyRow {
  std::string_view keys;
  std::string_view action;
};

inline constexpr std::array keyTable = {
    KeyRow{"Arrows", "the next cell that way; Left and Right go on in the line before or after"},
    KeyRow{"Page Up, Page Down", "a page of rows up or down"},
    KeyRow{"Home, End", "the first or last cell of the row"},
    KeyRow{"Ctrl+Home, Ctrl+End", "the first or last cell of all"},
    KeyRow{"Tab, Shift+Tab", "the next or previous cell that can be edited, then out of the grid"},
    KeyRow{"F2", "edits the cell, or opens its list"},
    KeyRow{"any character", "edits the cell and takes the place of its text"},
    KeyRow{"Enter", "edits the cell, opens its list or sets its mark; while editing: saves and stays"},
    KeyRow{"Up, Down while editing", "saves and goes to the next cell that way"},
    KeyRow{"Escape", "takes back what was typed; closes a list or the find bar, stops a search"},
    KeyRow{"Space", "sets or clears a mark"},
    KeyRow{"Ctrl+C", "copies the text of the cell, or the selected rows"},
    KeyRow{"Ctrl+V", "puts the text of the clipboard into the cell"},
    KeyRow{"Ctrl+I", "a new row above the present one"},
    KeyRow{"Ctrl+Shift+I", "a new row at the end"},
    KeyRow{"Ctrl+Delete", "deletes the row, or all selected rows"},
    KeyRow{"Ctrl+F", "looks for a text"},
    KeyRow{"F3, Shift+F3", "the next or previous cell that has the text"},
    KeyRow{"Ctrl+O", "opens another file"},
    KeyRow{"F5", "reads the file again"},
    KeyRow{"Ctrl+S", "saves to where the rows came from"},
    KeyRow{"Ctrl+P", "saves what the grid shows as a picture"},
    KeyRow{"Ctrl+Q", "ends the viewer"},
    KeyRow{"F1", "shows this list"},
};

}  // namespace tessera
