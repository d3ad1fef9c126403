// Key codes as the key messages carry them.

#pragma once

#include <cstdint>

namespace tessera::key {

inline constexpr std::int32_t backspace = 8, tab = 9, enter = 13, shift = 16, control = 17, escape = 27,
                              space = 32, pageUp = 33, pageDown = 34, end = 35, home = 36, left = 37, up = 38,
                              right = 39, down = 40, remove = 46, c = 67, v = 86;

// Characters that arrive as such but are keys, and write nothing.
constexpr bool isControl(char16_t character) { return character < u' ' || character == 127; }

}  // namespace tessera::key
