// Key codes as the key messages carry them.

#pragma once

#include <cstdint>

#include "platform/window.h"

namespace tessera {

namespace key {
inline constexpr std::int32_t backspace = 8, tab = 9, enter = 13, escape = 27, space = 32, pageUp = 33,
                              pageDown = 34, end = 35, home = 36, left = 37, up = 38, right = 39, down = 40,
                              c = 67, v = 86;
// Stands for a Tab that has found its cell.
inline constexpr std::int32_t tabDone = 255;
}  // namespace key

// The modifiers as OnKeyDown reports them.
inline std::int32_t keyState(Modifiers modifiers) {
  return (modifiers.control ? 1 : 0) + (modifiers.shift ? 2 : 0);
}

}  // namespace tessera
