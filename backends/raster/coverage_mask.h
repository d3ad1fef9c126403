// Coverage masks of glyphs, and colour laid through them.

#pragma once

#include <cstddef>
#include <cstdint>

#include "backends/raster/pixels.h"

namespace tessera {

// A byte a pixel: 0 leaves the pixel below, 255 replaces it. Rows begin `stride` bytes apart; what lies
// between them is 0.
struct CoverageMask {
  const std::uint8_t* bytes = nullptr;
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::ptrdiff_t stride = 0;

  // Rows are whole groups of this many bytes, so that a group of pixels can be blended at once.
  static constexpr std::int32_t group = 4;
  static constexpr std::ptrdiff_t strideOf(std::int32_t width) {
    return (static_cast<std::ptrdiff_t>(width) + group - 1) / group * group;
  }
};

// `color` through the mask, whose top left pixel is at (x, y), cut to `clip`, which must lie inside the
// surface.
void blendMask(const Pixels& target, const Rect& clip, std::int64_t x, std::int64_t y,
               const CoverageMask& mask, ColorRef color);

}  // namespace tessera
