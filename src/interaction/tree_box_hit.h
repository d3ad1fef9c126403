// The box that opens and closes a node.

#pragma once

#include "config/column_record.h"
#include "config/tree_info.h"
#include "rows/row_view.h"

namespace tessera {

// Whether a press at `at` works the box of `node` in its tree column. `cell` is the cell's rectangle as it is
// painted, not cut where columns are scrolled away. A leaf has no box.
bool hitsTreeBox(const TreeInfo& tree, const ColumnRecord& column, const Rect& cell, const RowView& node,
                 Point at);

}  // namespace tessera
