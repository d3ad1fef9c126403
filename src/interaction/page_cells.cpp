#include "interaction/page_cells.h"

#include "render/row_view_of.h"

namespace tessera {

CellLayout layoutOf(GridParts& parts, const ColumnRecord& column, const RowNode& row) {
  const GridFrame frame = parts.frame();
  return layoutCell({.column = column,
                     .tree = parts.config.tree,
                     .cell = frame.wholeCell(column, parts.page.VisibleIndex(&row)),
                     .clipLeft = frame.clipLeft(column),
                     .row = viewOf(parts.rows, row, isTreeCell(column, parts.config.tree))});
}

}  // namespace tessera
