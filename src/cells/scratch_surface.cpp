#include "cells/scratch_surface.h"

namespace tessera {

Canvas& scratchSurface(Canvas& canvas, std::unique_ptr<Canvas>& kept) {
  if (!kept || !(kept->size() == canvas.size()) || !canvas.isLike(*kept)) {
    kept = canvas.createSurface(canvas.size());
  }
  return *kept;
}

}  // namespace tessera
