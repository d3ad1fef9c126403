// Pixels in memory.

#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

#include "shared/bitmap_id.h"
#include "shared/color.h"

namespace tessera {

// Rows of 32-bit pixels 0xAARRGGBB, top row first, no padding, alpha not multiplied in. What must hold:
// pixels.size() is width * height.
struct Bitmap {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::vector<std::uint32_t> pixels;
  // Set by whoever makes the pixels: their alpha counts. Otherwise all are opaque, whatever alpha they have.
  bool translucent = false;
  // By which a canvas keeps what it made of the pixels.
  BitmapId id;

  Bitmap() = default;
  Bitmap(std::int32_t w, std::int32_t h, std::uint32_t pixel = 0xFF000000)
      : width(w), height(h), pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h), pixel) {}

  std::uint32_t at(std::int32_t x, std::int32_t y) const {
    return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }

  // Looks for a pixel that is not opaque.
  void findTranslucent() {
    translucent =
        std::any_of(pixels.begin(), pixels.end(), [](std::uint32_t pixel) { return pixel >> 24 != 0xFF; });
  }
};

// A bitmap that records and caches share; nobody changes it after it was made.
using BitmapRef = std::shared_ptr<const Bitmap>;

constexpr std::uint32_t pixelOf(ColorRef color) {
  return 0xFF000000u | static_cast<std::uint32_t>(redOf(color)) << 16 |
         static_cast<std::uint32_t>(greenOf(color)) << 8 | blueOf(color);
}
constexpr ColorRef colorOfPixel(std::uint32_t pixel) {
  return rgb(static_cast<std::uint8_t>(pixel >> 16), static_cast<std::uint8_t>(pixel >> 8),
             static_cast<std::uint8_t>(pixel));
}

}  // namespace tessera
