#include "backends/raster/pixels.h"

#include <pixman.h>

#include "backends/raster/pixel_lanes.h"
#include "shared/bitmap.h"

namespace tessera {
namespace {

void invertRow(const Pixels& target, const Rect& visible, const Rect& area, std::int32_t y) {
  if (y < visible.top || y >= visible.bottom) return;
  // Only parities count, so the wrapped difference of far coordinates is as good as the true one.
  const std::uint32_t phase = static_cast<std::uint32_t>(y) ^ static_cast<std::uint32_t>(area.top) ^
                              static_cast<std::uint32_t>(area.left);
  std::int32_t x = visible.left;
  if ((static_cast<std::uint32_t>(x) ^ phase) & 1) ++x;
  for (; x < visible.right; x += 2) *target.at(x, y) ^= colorBits;
}

void invertColumn(const Pixels& target, const Rect& visible, const Rect& area, std::int32_t x) {
  if (x < visible.left || x >= visible.right) return;
  const std::uint32_t phase = static_cast<std::uint32_t>(x) ^ static_cast<std::uint32_t>(area.top) ^
                              static_cast<std::uint32_t>(area.left);
  for (std::int32_t y = visible.top; y < visible.bottom; ++y) {
    const bool corner = y == area.top || y == area.bottom - 1;
    if (!corner && ((static_cast<std::uint32_t>(y) ^ phase) & 1) == 0) *target.at(x, y) ^= colorBits;
  }
}

// The sides of cells: too little for pixman's set-up to pay.
void fillColumn(const Pixels& target, const Rect& visible, std::uint32_t pixel) {
  std::uint32_t* place = target.at(visible.left, visible.top);
  for (std::int32_t rows = visible.height(); rows > 0; --rows, place += target.stride) *place = pixel;
}

}  // namespace

void fillPixels(const Pixels& target, const Rect& area, ColorRef color) {
  const Rect visible = intersect(area, target.bounds());
  if (visible.empty()) return;
  if (visible.width() == 1) return fillColumn(target, visible, pixelOf(color));
  pixman_fill(target.bits, static_cast<int>(target.stride), 32, visible.left, visible.top, visible.width(),
              visible.height(), pixelOf(color));
}

void blendPixels(const Pixels& target, const Rect& area, ColorRef color, std::uint8_t alpha) {
  if (alpha == 0) return;
  if (alpha == 255) return fillPixels(target, area, color);
  const Rect visible = intersect(area, target.bounds());
  if (visible.empty()) return;
  const std::uint64_t over = spread(pixelOf(color)) * alpha;
  const std::uint64_t rest = 255u - alpha;
  for (std::int32_t y = visible.top; y < visible.bottom; ++y) {
    std::uint32_t* const row = target.at(0, y);
    for (std::int32_t x = visible.left; x < visible.right; ++x) {
      row[x] = gather(divideBy255(over + spread(row[x]) * rest));
    }
  }
}

void invertDottedBorder(const Pixels& target, const Rect& area) {
  const Rect visible = intersect(area, target.bounds());
  if (visible.empty() || area.empty()) return;
  invertRow(target, visible, area, area.top);
  if (area.bottom - 1 != area.top) invertRow(target, visible, area, area.bottom - 1);
  invertColumn(target, visible, area, area.left);
  if (area.right - 1 != area.left) invertColumn(target, visible, area, area.right - 1);
}

}  // namespace tessera
