#include "backends/raster/bitmap_painter.h"

#include <algorithm>
#include <cstring>

#include "backends/raster/pixel_lanes.h"

namespace tessera {
namespace {

// Which source pixel a target pixel of one axis takes, stepped from target pixel to target pixel without
// dividing. Lengths are below 2^32, so that every product fits 64 bits.
class AxisSteps {
 public:
  AxisSteps(std::int64_t targetStart, std::int64_t targetEnd, std::int64_t sourceStart,
            std::int64_t sourceEnd, std::int64_t first)
      : targetLength_(static_cast<std::uint64_t>(targetEnd - targetStart)) {
    const auto sourceLength = static_cast<std::uint64_t>(sourceEnd - sourceStart);
    const std::uint64_t product = static_cast<std::uint64_t>(first - targetStart) * sourceLength;
    place_ = sourceStart + static_cast<std::int64_t>(product / targetLength_);
    error_ = product % targetLength_;
    whole_ = static_cast<std::int64_t>(sourceLength / targetLength_);
    part_ = sourceLength % targetLength_;
  }

  std::int64_t place() const { return place_; }
  void next() {
    place_ += whole_;
    error_ += part_;
    if (error_ >= targetLength_) {
      error_ -= targetLength_;
      ++place_;
    }
  }

 private:
  std::uint64_t targetLength_;
  std::int64_t place_ = 0;
  std::uint64_t error_ = 0;
  std::int64_t whole_ = 0;
  std::uint64_t part_ = 0;
};

// No pixel equals it after its alpha byte is cleared, so it keys nothing.
constexpr std::uint32_t keyNothing = 0xFFFFFFFF;

template <bool translucent>
void stretchRow(std::uint32_t* to, std::int64_t count, const std::uint32_t* from, std::int64_t sourceWidth,
                AxisSteps across, std::uint32_t key) {
  for (std::int64_t i = 0; i < count; ++i, across.next()) {
    const std::int64_t x = across.place();
    if (x < 0 || x >= sourceWidth) continue;
    const std::uint32_t pixel = from[x];
    if ((pixel & colorBits) != key) to[i] = translucent ? composed(to[i], pixel) : pixel;
  }
}

void composeRow(std::uint32_t* to, const std::uint32_t* from, std::int64_t count) {
  for (std::int64_t i = 0; i < count; ++i) to[i] = composed(to[i], from[i]);
}

}  // namespace

void copyPixels(const Pixels& target, const Rect& area, const PixelSource& source, std::int32_t sourceX,
                std::int32_t sourceY) {
  if (area.empty()) return;
  const Rect visible = intersect(area, target.bounds());
  const std::int64_t shiftX = static_cast<std::int64_t>(sourceX) - area.left;
  const std::int64_t shiftY = static_cast<std::int64_t>(sourceY) - area.top;
  const std::int64_t left = std::max<std::int64_t>(visible.left, -shiftX);
  const std::int64_t right = std::min<std::int64_t>(visible.right, source.width - shiftX);
  const std::int64_t top = std::max<std::int64_t>(visible.top, -shiftY);
  const std::int64_t bottom = std::min<std::int64_t>(visible.bottom, source.height - shiftY);
  if (left >= right || top >= bottom) return;
  const std::size_t rowBytes = static_cast<std::size_t>(right - left) * sizeof(std::uint32_t);
  // Rows below must be read before an overlapping copy downwards overwrites them.
  const bool upwards = shiftY < 0;
  for (std::int64_t i = 0; i < bottom - top; ++i) {
    const std::int64_t y = upwards ? bottom - 1 - i : top + i;
    const std::uint32_t* const from = source.at(left + shiftX, y + shiftY);
    if (source.translucent) {
      composeRow(target.at(left, y), from, right - left);
    } else {
      std::memmove(target.at(left, y), from, rowBytes);
    }
  }
}

void stretchPixels(const Pixels& target, const Rect& area, const PixelSource& source, const Rect& sourceArea,
                   ColorRef key) {
  const Rect visible = intersect(area, target.bounds());
  if (area.empty() || sourceArea.empty() || visible.empty()) return;
  const std::uint32_t keyPixel = key == noColor ? keyNothing : pixelOf(key) & colorBits;
  const AxisSteps across(area.left, area.right, sourceArea.left, sourceArea.right, visible.left);
  const auto row = source.translucent ? stretchRow<true> : stretchRow<false>;
  AxisSteps down(area.top, area.bottom, sourceArea.top, sourceArea.bottom, visible.top);
  for (std::int32_t y = visible.top; y < visible.bottom; ++y, down.next()) {
    if (down.place() < 0 || down.place() >= source.height) continue;
    row(target.at(visible.left, y), visible.width(), source.at(0, down.place()), source.width, across,
        keyPixel);
  }
}

}  // namespace tessera
