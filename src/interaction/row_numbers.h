// Row numbers that the grid holds while rows come and go.

#pragma once

#include "interaction/editor_controller.h"
#include "interaction/grid_parts.h"
#include "rows/rows_changed.h"

namespace tessera {

// Everything that holds rows by their number hears of a change here, but the page, whose rows are a matter of
// places where rows come and go in a plain grid.
void renumberRows(GridParts& parts, EditorController& editors, const RowsChanged& change);

}  // namespace tessera
