// The memory surface that painters share.

#pragma once

#include <memory>

#include "platform/canvas.h"

namespace tessera {

// `kept` with the canvas's coordinates, holding whatever was drawn on it last; made anew for a canvas of
// another size or kind.
Canvas& scratchSurface(Canvas& canvas, std::unique_ptr<Canvas>& kept);

}  // namespace tessera
