// What shows the selection over the finished cells.

#pragma once

#include "render/paint_context.h"
#include "render/paint_result.h"

namespace tessera {

// Tints, the focus rectangle and the focus cell's button. Where the focus cell's edit window belongs goes to
// `result`. What must hold: scratch.selected is up to date.
void paintFocus(const PaintContext& context, PaintResult& result);

}  // namespace tessera
