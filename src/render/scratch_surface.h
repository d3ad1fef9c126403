// The memory surface that painters share.

#pragma once

#include "render/paint_context.h"

namespace tessera {

// A surface with the canvas's coordinates, holding whatever was drawn on it last. It is kept, and made anew
// for a canvas of another size or kind.
Canvas& scratchSurface(const PaintContext& context);

}  // namespace tessera
