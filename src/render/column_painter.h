// The rows of one column.

#pragma once

#include "render/paint_context.h"

namespace tessera {

// Paints the column's cells for the rows of the page, downwards. `ground` is the colour that the column has
// from top to bottom, if it is known to have one. What must hold: a data set is bound.
void paintColumnCells(const PaintContext& context, const ColumnRecord& column,
                      std::optional<ColorRef> ground);

}  // namespace tessera
