// What the row template and the header band measure.

#pragma once

#include <cstdint>
#include <vector>

#include "config/column_record.h"

namespace tessera {

// Measured from the columns by every Refresh; the column rectangles themselves are live and hold no more than
// their positions.
struct GridMetrics {
  std::int32_t RowHeight = -1;         // of one row template; -65536 when no column has its view on
  std::int32_t HeaderHeight = 0;       // of the header band
  std::vector<std::int32_t> LineTops;  // distinct view tops of all columns, ascending
  bool AnyFixed = false;               // some column is fixed
  std::int32_t indicatorShift = 0;     // how far the columns stand moved right for the indicator

  void measureHeights(const ColumnList& columns);
  void buildLineTops(const ColumnList& columns);
  // The line that begins at this height; 0 for a height that begins none.
  std::int32_t lineAt(std::int32_t top) const;
  // Moves the columns so that they stand right of an indicator of this width.
  void makeRoomForIndicator(ColumnList& columns, std::int32_t width);
  // Makes every column fixed that a spanning header ties to the fixed ones.
  void closeFixedZone(ColumnList& columns);
};

}  // namespace tessera
