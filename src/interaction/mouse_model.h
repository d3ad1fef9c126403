// What a pressed mouse button has started.

#pragma once

#include <cstdint>

#include "config/column_record.h"
#include "shared/rect.h"

namespace tessera {

enum class MouseState : std::int32_t {
  Idle = 1,
  Pressed = 2,        // on a place where a drag or a block may start
  OwnDragInside = 3,  // a drag of this grid's data over this grid
  OwnDragOutside = 4,
  ForeignDrag = 5,
  Block = 6,  // a block is being drawn
};

// A drag of a column edge.
struct ResizeModel {
  bool active = false;
  std::int32_t edge = 0;   // x of the edge as it stands
  std::int32_t lastX = 0;  // of the last step
  std::int32_t minX = 0;   // the range of the mouse
  std::int32_t maxX = 0;
  bool fixed = false;  // the edge lies in the fixed region: scrolled columns shift, fixed ones resize
};

// A header that is held down.
struct SortPress {
  bool pressed = false;
  ColumnPosition column = nullptr;
  Rect rect;  // of the header when it was pressed
  std::int32_t savedBorder = 0;
};

struct MouseModel {
  MouseState state = MouseState::Idle;
  Point press;  // where state Pressed began
  ResizeModel resize;
  SortPress sort;

  // Column references go with the columns.
  void forgetColumns() {
    resize = ResizeModel{};
    sort = SortPress{};
  }
};

}  // namespace tessera
