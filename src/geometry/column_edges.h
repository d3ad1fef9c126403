// Questions about the left and right edges of columns, and moving them.

#pragma once

#include <cstdint>

#include "config/column_record.h"

namespace tessera {

// Smallest left and largest right of the fixed columns' headers; meaningful when there is a fixed column.
struct FixedRange {
  std::int32_t left = 65536;
  std::int32_t right = 0;
  std::int32_t width() const { return subClamped(right, left); }
};
FixedRange fixedRange(const ColumnList& columns);

struct ExpandOptions {
  bool useHeader = true;  // header or view rectangles
  bool fixedToo =
      false;  // false: fixed columns are passed over; true: those left of `limit` that are not fixed
  std::int32_t limit = -1;
};

// The edge pushed to the right (left) until no column straddles it.
std::int32_t ExpandRight(const ColumnList& columns, std::int32_t edge, const ExpandOptions& options);
std::int32_t ExpandLeft(const ColumnList& columns, std::int32_t edge, const ExpandOptions& options);

// Moves header and view of every column, or of those outside the fixed zone.
void ShiftColumns(ColumnList& columns, std::int32_t dx);
void shiftScrolledColumns(ColumnList& columns, std::int32_t dx);

}  // namespace tessera
