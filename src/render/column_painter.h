// The rows of one column.

#pragma once

#include "render/paint_context.h"

namespace tessera {

// Paints the column's cells for the rows of the page, downwards. What must hold: a data set is bound.
void paintColumnCells(const PaintContext& context, const ColumnRecord& column);

}  // namespace tessera
