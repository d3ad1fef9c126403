// Small canvases as rows of letters.

#pragma once

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "backends/raster/raster_canvas.h"

namespace tessera {

inline constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
inline constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();

inline constexpr ColorRef black = rgb(0, 0, 0), white = rgb(255, 255, 255), red = rgb(255, 0, 0),
                          green = rgb(0, 255, 0), blue = rgb(0, 0, 255);

struct WhiteCanvas : RasterCanvas {
  WhiteCanvas(std::int32_t width, std::int32_t height) : RasterCanvas({width, height}) {
    fill({0, 0, width, height}, white);
  }
};

using Picture = std::vector<std::string>;

inline char letterOf(std::uint32_t pixel) {
  switch (colorOfPixel(pixel)) {
    case white:
      return '.';
    case black:
      return '#';
    case red:
      return 'r';
    case green:
      return 'g';
    case blue:
      return 'b';
    default:
      return '?';
  }
}

inline Picture pictureOf(const RasterCanvas& canvas) {
  Picture picture;
  for (std::int32_t y = 0; y < canvas.size().height; ++y) {
    std::string& row = picture.emplace_back();
    for (std::int32_t x = 0; x < canvas.size().width; ++x) row += letterOf(canvas.pixel(x, y));
  }
  return picture;
}

// The other way round; the alpha of a bitmap that is not translucent must not matter, so it has none.
inline Bitmap bitmapOf(const Picture& picture) {
  Bitmap bitmap(static_cast<std::int32_t>(picture.front().size()), static_cast<std::int32_t>(picture.size()));
  std::size_t place = 0;
  for (const std::string& row : picture) {
    for (const char c : row) {
      const ColorRef color = c == 'r' ? red : c == 'g' ? green : c == 'b' ? blue : c == '#' ? black : white;
      bitmap.pixels[place++] = pixelOf(color) & 0x00FFFFFF;
    }
  }
  return bitmap;
}

inline std::size_t inkOf(const Bitmap& bitmap) {
  std::size_t count = 0;
  for (const std::uint32_t pixel : bitmap.pixels) count += pixel != pixelOf(white);
  return count;
}

}  // namespace tessera
