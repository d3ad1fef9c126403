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

// What a drag of its edge or a fitting leaves of a column at least: one without width could not be found
// again.
inline constexpr std::int32_t leastColumnWidth = 5;

// Header and view alike.
void moveColumn(ColumnRecord& column, std::int32_t dx);
// The right edges move, the left ones stay.
void widenColumn(ColumnRecord& column, std::int32_t dx);

// Moves one edge, by header coordinates: columns at or right of it move, columns that span it or end at it
// grow, the others stay. Views follow their headers.
void ShiftEdge(ColumnList& columns, std::int32_t edge, std::int32_t dx);

// Moves every column, or those outside the fixed zone.
void ShiftColumns(ColumnList& columns, std::int32_t dx);
void shiftScrolledColumns(ColumnList& columns, std::int32_t dx);

}  // namespace tessera
