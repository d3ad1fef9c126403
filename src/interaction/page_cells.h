// Where the cells of the page stand, for presses and child windows.

#pragma once

#include "cells/cell_layout.h"
#include "interaction/grid_parts.h"

namespace tessera {

// The cell of a row; one that is not on the page stands right above its first row.
inline CellLayout layoutOf(const GridParts& parts, const ColumnRecord& column, Row row) {
  const GridFrame frame = parts.frame();
  return layoutCell({.column = column,
                     .tree = parts.config.tree,
                     .cell = frame.wholeCell(column, parts.page.VisibleIndex(row)),
                     .clipLeft = frame.clipLeft(column),
                     .row = parts.rows.view(row)});
}

}  // namespace tessera
