#include "render/scratch_surface.h"

#include <typeinfo>

namespace tessera {

Canvas& scratchSurface(const PaintContext& context) {
  std::unique_ptr<Canvas>& surface = context.scratch.surface;
  const Canvas& canvas = context.canvas;
  const Canvas* present = surface.get();
  if (!present || !(present->size() == canvas.size()) || typeid(*present) != typeid(canvas)) {
    surface = context.canvas.createSurface(canvas.size());
  }
  return *surface;
}

}  // namespace tessera
