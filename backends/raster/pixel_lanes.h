// The four channels of a pixel side by side, so that one multiplication weighs them all.

#pragma once

#include <cstdint>

namespace tessera {

// A channel in the lower byte of each of four 16-bit lanes.
inline constexpr std::uint64_t lowBytes = 0x00FF00FF00FF00FF;
constexpr std::uint64_t spread(std::uint32_t pixel) {
  return (pixel | static_cast<std::uint64_t>(pixel) << 24) & lowBytes;
}
constexpr std::uint32_t gather(std::uint64_t lanes) {
  return static_cast<std::uint32_t>(lanes | lanes >> 24);
}

// Every lane / 255 rounded to the nearest, for lanes of 0..65025.
constexpr std::uint64_t divideBy255(std::uint64_t lanes) {
  lanes += 0x0080008000800080;
  return (lanes + (lanes >> 8 & lowBytes)) >> 8 & lowBytes;
}

// `over` laid on `under` by its own alpha, which is not multiplied into its colours.
constexpr std::uint32_t composed(std::uint32_t under, std::uint32_t over) {
  const std::uint64_t alpha = over >> 24;
  return gather(divideBy255(spread(over) * alpha + spread(under) * (255 - alpha)));
}

}  // namespace tessera
