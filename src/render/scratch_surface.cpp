#include "render/scratch_surface.h"

namespace tessera {

Canvas& scratchSurface(const PaintContext& context) {
  std::unique_ptr<Canvas>& surface = context.scratch.surface;
  const Canvas& canvas = context.canvas;
  if (!surface || !(surface->size() == canvas.size()) || !canvas.isLike(*surface)) {
    surface = context.canvas.createSurface(canvas.size());
  }
  return *surface;
}

}  // namespace tessera
