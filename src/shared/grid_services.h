// The one way up: what the parts of a grid may ask of the control that they belong to.

#pragma once

#include <cstdint>
#include <span>

#include <tessera/events.h>

#include "shared/rect.h"

namespace tessera {

// The rows of the error table.
enum class ErrorCode : std::int32_t {
  ColumnInfo = 0,
  BackgroundInfo = 1,
  IndicatorInfo = 2,
  MenuInfo = 3,
  Expression = 4,
  TooManyTreeColumns = 5,
  NoTreeColumn = 6,
  TreeLevelType = 7,
  NoTreeLevelColumn = 8,
  TreeLevelValue = 9,
  SubsumExpr = 10,
  ExcelCreate = 11,
  ExcelInvoke = 12,
  ExcelInternal = 13,
};

class GridServices {
 public:
  virtual ~GridServices() = default;
  // Redraws `area` (null: everything) if drawing is on and there is a window.
  virtual void Repaint(const Rect* area) = 0;
  // Fires OnError with the code and its text.
  virtual void ReportError(ErrorCode code) = 0;
  // Fires an event at all listeners and gives the last answer, VT_EMPTY without one. Not called by itself:
  // the typed fire() checks the arguments and tells what has become of the grid.
  virtual XValue fire(EventId id, std::span<const XValue> arguments) = 0;
  // Refreshes the grid if that was put off while it was being read.
  virtual void catchUp() = 0;
};

}  // namespace tessera
