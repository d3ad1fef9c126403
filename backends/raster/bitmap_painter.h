// Copies of pixels onto a surface: plain, stretched and keyed.

#pragma once

#include <cstdint>

#include "backends/raster/pixels.h"
#include "shared/bitmap.h"

namespace tessera {

// Pixels to read from; `bits` may be null when the width or height is 0.
struct PixelSource {
  const std::uint32_t* bits = nullptr;
  std::ptrdiff_t stride = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
  bool translucent = false;  // the pixels are laid over what is there by their alpha

  explicit PixelSource(const Bitmap& bitmap)
      : bits(bitmap.pixels.data()),
        stride(bitmap.width),
        width(bitmap.width),
        height(bitmap.height),
        translucent(bitmap.translucent) {}
  explicit PixelSource(const Pixels& pixels)
      : bits(pixels.bits), stride(pixels.stride), width(pixels.width), height(pixels.height) {}

  const std::uint32_t* at(std::int64_t x, std::int64_t y) const { return bits + y * stride + x; }
};

// Places of `area` that would come from outside the source stay as they are. Source and target may be the
// same pixels, also when they overlap, unless the source is translucent.
void copyPixels(const Pixels& target, const Rect& area, const PixelSource& source, std::int32_t sourceX,
                std::int32_t sourceY);

// `sourceArea` stretched over `area` by repeating or leaving out pixels: of n target pixels over m source
// pixels, target pixel i takes source pixel floor(i * m / n). Pixels of colour `key` (none for noColor) and
// places that would come from outside the source stay as they are.
void stretchPixels(const Pixels& target, const Rect& area, const PixelSource& source, const Rect& sourceArea,
                   ColorRef key);

}  // namespace tessera
