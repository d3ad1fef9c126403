// The indicator column.

#pragma once

#include "render/paint_context.h"

namespace tessera {

// Corner, summary cell and one cell for each row of the page. What must hold: scratch.selected is up to date.
void paintIndicator(const PaintContext& context);

}  // namespace tessera
