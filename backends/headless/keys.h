// Key codes that the edit and list windows know.

#pragma once

#include <cstdint>

namespace tessera::keys {

inline constexpr std::int32_t backspace = 8, tab = 9, pageUp = 33, pageDown = 34, end = 35, home = 36,
                              left = 37, up = 38, right = 39, down = 40, remove = 46;

constexpr bool isControl(char16_t character) { return character < u' ' || character == 127; }

}  // namespace tessera::keys
