// One paint of the grid.

#pragma once

#include "render/paint_context.h"
#include "render/paint_result.h"

namespace tessera {

// Draws the whole client area in a fixed order, so that later layers lie over earlier ones: background, rows,
// header band, summary band, indicator, selection. Keeps buffers from paint to paint and no state.
class PaintPipeline {
 public:
  // Draws on a canvas of the client's size; nothing is drawn while painting is off.
  PaintResult paint(Canvas& canvas, const PaintModel& model);

 private:
  PaintScratch scratch_;
};

// The picture of a grid whose painting is off.
void fillWindowColor(Canvas& canvas);

}  // namespace tessera
