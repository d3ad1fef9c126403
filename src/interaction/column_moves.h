// Moving the edges of columns.

#pragma once

#include <cstdint>

#include "config/column_record.h"

namespace tessera {

// What a drag of its edge or a fitting leaves of a column at least: one without width could not be found
// again.
inline constexpr std::int32_t leastColumnWidth = 5;

void moveColumn(ColumnRecord& column, std::int32_t dx);
// The right edges move, the left ones stay.
void widenColumn(ColumnRecord& column, std::int32_t dx);

// Moves one edge, by header coordinates: columns at or right of it move, columns that span it or end at it
// grow, the others stay. Views follow their headers.
void ShiftEdge(ColumnList& columns, std::int32_t edge, std::int32_t dx);

}  // namespace tessera
