// Where the cells of the page stand, for presses and child windows.

#pragma once

#include "cells/cell_layout.h"
#include "interaction/grid_parts.h"

namespace tessera {

// The cell of a row; one that is not on the page stands right above its first row.
CellLayout layoutOf(GridParts& parts, const ColumnRecord& column, const RowNode& row);

}  // namespace tessera
