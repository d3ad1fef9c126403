// Keys as the grid reads and reports them.

#pragma once

#include <cstdint>

#include "platform/key_codes.h"
#include "platform/window.h"

namespace tessera {

namespace key {
// Stands for a Tab that has found its cell.
inline constexpr std::int32_t tabDone = 255;
}  // namespace key

// The modifiers as OnKeyDown reports them.
inline std::int32_t keyState(Modifiers modifiers) {
  return (modifiers.control ? 1 : 0) + (modifiers.shift ? 2 : 0);
}

}  // namespace tessera
