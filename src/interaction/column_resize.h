// Dragging the edge of a column.

#pragma once

#include "interaction/press_capture.h"

namespace tessera {

// The widths that a drag leaves live in the column records until the next Refresh, which also ends the drag.
class ColumnResize {
 public:
  explicit ColumnResize(GridParts& parts) : parts_(parts), capture_(parts) {}

  // A press in the header band; true when an edge is near enough to be dragged.
  bool start(Point at);
  // The pointer moved; true when columns moved.
  bool step(std::int32_t x);
  // True when a drag ended.
  bool end();

 private:
  void moveEdge(std::int32_t dx);

  GridParts& parts_;
  PressCapture capture_;
};

// The settings' bit that lets columns be resized.
inline constexpr std::int32_t resizeColumnsBit = 1;

}  // namespace tessera
