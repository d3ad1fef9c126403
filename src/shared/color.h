// Colours as 0x00BBGGRR values.

#pragma once

#include <cstdint>

namespace tessera {

using ColorRef = std::uint32_t;

inline constexpr ColorRef noColor = 0xFFFFFFFF;

constexpr ColorRef rgb(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
  return red | static_cast<ColorRef>(green) << 8 | static_cast<ColorRef>(blue) << 16;
}
constexpr std::uint8_t redOf(ColorRef color) { return static_cast<std::uint8_t>(color); }
constexpr std::uint8_t greenOf(ColorRef color) { return static_cast<std::uint8_t>(color >> 8); }
constexpr std::uint8_t blueOf(ColorRef color) { return static_cast<std::uint8_t>(color >> 16); }

}  // namespace tessera
