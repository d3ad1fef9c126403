// The state of the edit and list windows.

#pragma once

#include <cstdint>
#include <memory>

#include "platform/edit_box.h"
#include "platform/list_box.h"

namespace tessera {

struct EditorModel {
  std::unique_ptr<EditBox> box;   // null without a window
  std::unique_ptr<ListBox> list;  // null without a window
  bool active = false;            // an edit is in progress
  std::int32_t inputType = 0;     // the column's input_type bits when the editor opened
  std::int32_t limit = 0;         // most characters
  XString oldText;                // the cell's text at opening
  std::int32_t decimals = 0;      // most digits after the point in a numeric editor
  bool listClosing = false;       // the list goes by a choice or by Escape, not by losing the focus
  bool asking = false;            // OnExit is being fired: no second close may start
};

}  // namespace tessera
