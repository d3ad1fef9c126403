#include "pictures/picture_compare.h"

#include <algorithm>

namespace tessera {
namespace {

constexpr std::uint32_t opaque = 0xFF000000u;
constexpr std::uint32_t marked = pixelOf(rgb(220, 0, 40));
constexpr std::uint32_t ground = pixelOf(rgb(90, 90, 90));
constexpr std::int32_t scale = 2;
constexpr std::int32_t gap = 8;

bool has(const Bitmap& bitmap, std::int32_t x, std::int32_t y) {
  return x < bitmap.width && y < bitmap.height;
}

// Three quarters of the way to white.
std::uint32_t pale(std::uint32_t pixel) { return opaque | (0x00C0C0C0u + ((pixel >> 2) & 0x003F3F3Fu)); }

void put(Bitmap& bitmap, std::int32_t x, std::int32_t y, std::uint32_t pixel) {
  bitmap.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(bitmap.width) +
                static_cast<std::size_t>(x)] = pixel;
}

void putScaled(Bitmap& sheet, const Bitmap& picture, std::int32_t left) {
  for (std::int32_t y = 0; y < picture.height * scale; ++y) {
    for (std::int32_t x = 0; x < picture.width * scale; ++x) {
      put(sheet, left + x, gap + y, picture.at(x / scale, y / scale) | opaque);
    }
  }
}

}  // namespace

PictureDifference differenceOf(const Bitmap& expected, const Bitmap& actual) {
  PictureDifference difference;
  difference.picture =
      Bitmap(std::max(expected.width, actual.width), std::max(expected.height, actual.height));
  for (std::int32_t y = 0; y < difference.picture.height; ++y) {
    for (std::int32_t x = 0; x < difference.picture.width; ++x) {
      const bool same = has(expected, x, y) && has(actual, x, y) &&
                        (expected.at(x, y) | opaque) == (actual.at(x, y) | opaque);
      if (!same) ++difference.count;
      put(difference.picture, x, y, same ? pale(actual.at(x, y)) : marked);
    }
  }
  return difference;
}

Bitmap sideBySide(const Bitmap& expected, const Bitmap& actual, const Bitmap& difference) {
  const Bitmap* all[] = {&expected, &actual, &difference};
  std::int32_t width = gap;
  std::int32_t height = 0;
  for (const Bitmap* picture : all) {
    width += picture->width * scale + gap;
    height = std::max(height, picture->height * scale);
  }
  Bitmap sheet(width, height + 2 * gap, ground);
  std::int32_t left = gap;
  for (const Bitmap* picture : all) {
    putScaled(sheet, *picture, left);
    left += picture->width * scale + gap;
  }
  return sheet;
}

}  // namespace tessera
