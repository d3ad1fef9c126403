// A font by description.

#pragma once

#include <cstdint>
#include <cstring>
#include <functional>
#include <string_view>

namespace tessera {

// The platform's logical font record as far as the grid fills it. A plain value: equal bytes, equal font,
// so that font caches can key on it.
struct LogFont {
  static constexpr std::size_t faceBytes = 31;

  std::int32_t lfHeight = 0;  // negative: character height in pixels; 0: the back end's default
  std::int32_t lfWeight = 0;  // 700 bold, else 0
  std::uint8_t lfItalic = 0;
  std::uint8_t lfUnderline = 0;
  char lfFaceName[faceBytes + 1] = {};  // UTF-8, zero-terminated, zero-filled

  // Longer names are cut at a character boundary.
  void setFace(std::string_view utf8);
  std::string_view face() const { return lfFaceName; }
  bool operator==(const LogFont& other) const = default;
};

}  // namespace tessera

template <>
struct std::hash<tessera::LogFont> {
  std::size_t operator()(const tessera::LogFont& font) const noexcept {
    std::size_t seed = std::hash<std::string_view>{}(font.face());
    seed = seed * 31 + static_cast<std::size_t>(font.lfHeight);
    seed = seed * 31 + static_cast<std::size_t>(font.lfWeight);
    return seed * 31 + static_cast<std::size_t>(font.lfItalic * 2 + font.lfUnderline);
  }
};
