// Pressing a header to sort by its column.

#pragma once

#include "interaction/press_capture.h"

namespace tessera {

// A Refresh ends the press, since the column that it was on is gone.
class SortPressController {
 public:
  explicit SortPressController(GridParts& parts) : parts_(parts), capture_(parts) {}

  // A press on the header of `column` (null: on none); true when it went down.
  bool start(ColumnPosition column, Point at);
  // The header comes up while the pointer is away from it; true when it changed.
  bool step(Point at);
  // True when a press ended.
  bool end();
  // The button came up over the header of `column` (null: over none), which ends the press; when that header
  // was the pressed one the rows are sorted. The data set rebuilds them meanwhile, and its other subscribers
  // may do anything.
  bool release(ColumnPosition column);

 private:
  void sort(ColumnPosition column);
  void markColumn(ColumnPosition column, std::int32_t mark);

  GridParts& parts_;
  PressCapture capture_;
};

}  // namespace tessera
