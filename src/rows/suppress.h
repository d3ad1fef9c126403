// Consecutive equal rows that are drawn as one tall cell.

#pragma once

#include "rows/cell_text.h"

namespace tessera {

// Completes the suppress lists of all columns: every list that is not empty also names its own column,
// entries get their column and dataset number, and those that name no dataset column go. Once for each
// Refresh, after the columns were read.
void ResolveSuppress(ColumnList& columns, const DataLink& link);

struct SpanLimits {
  std::int32_t rowHeight = 0;  // a view that is lower than this never merges
  std::int32_t maxRows = 1;    // no span is longer
};

struct CellSpan {
  std::int32_t span = 1;  // rows that the cell covers, by dataset number
  // 0: the view is the style; above: the group cell of that level; below: nothing is drawn.
  std::int32_t level = 0;
};

// The text of any cell. There is no stored merge table: the run that starts at `row` is found by comparing
// the rows behind it. `row` is the row of `source.eval` afterwards.
CellSpan CellTextAndSpan(const TextSource& source, const ColumnRecord& column, std::int32_t row,
                         std::int32_t columnIndex, const SpanLimits& limits, XString& text);

}  // namespace tessera
