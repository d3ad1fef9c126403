// A borrowed view of a surface's pixels and the operations that need no more than that.

#pragma once

#include <cstddef>
#include <cstdint>

#include "shared/color.h"
#include "shared/rect.h"

namespace tessera {

// Rows of 32-bit pixels, red in bits 16 to 23 and blue in the lowest, top row first. The highest byte means
// nothing.
struct Pixels {
  std::uint32_t* bits = nullptr;
  std::ptrdiff_t stride = 0;  // from row to row, in pixels
  std::int32_t width = 0;
  std::int32_t height = 0;

  Rect bounds() const { return {0, 0, width, height}; }
  std::uint32_t* at(std::int64_t x, std::int64_t y) const { return bits + y * stride + x; }
};

inline constexpr std::uint32_t opaque = 0xFF000000;
inline constexpr std::uint32_t colorBits = 0x00FFFFFF;

void fillPixels(const Pixels& target, const Rect& area, ColorRef color);

// Every channel becomes (color * alpha + old * (255 - alpha)) / 255, rounded to the nearest.
void blendPixels(const Pixels& target, const Rect& area, ColorRef color, std::uint8_t alpha);

// Inverts the border pixels of `area` whose distance from its top left corner, x plus y, is even. Drawing it
// again restores the surface.
void invertDottedBorder(const Pixels& target, const Rect& area);

}  // namespace tessera
