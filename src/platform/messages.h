// Numbers and words of the window's messages.

#pragma once

#include <cstdint>

#include "shared/rect.h"

namespace tessera {

namespace message {
inline constexpr std::uint32_t setFocus = 7, killFocus = 8, setCursor = 32, keyDown = 256, keyUp = 257,
                               character = 258, systemKeyDown = 260, startComposition = 269,
                               composition = 271, timer = 275, hscroll = 276, vscroll = 277, mouseMove = 512,
                               leftDown = 513, leftUp = 514, leftDouble = 515, rightDown = 516, rightUp = 517,
                               rightDouble = 518, wheel = 522;
}  // namespace message

namespace scroll_code {
inline constexpr std::uint64_t lineBack = 0, lineOn = 1, pageBack = 2, pageOn = 3, thumbPosition = 4,
                               thumbTrack = 5, first = 6, last = 7, end = 8;
}  // namespace scroll_code

// The keys and buttons that a mouse message carries.
namespace held {
inline constexpr std::uint64_t left = 1, right = 2, shift = 4, control = 8;
}  // namespace held

// Of the wheel; a message says how far it was turned.
inline constexpr std::int32_t wheelNotch = 120;

constexpr std::int64_t packedPoint(Point point) {
  return static_cast<std::int64_t>(point.y & 0xFFFF) << 16 | (point.x & 0xFFFF);
}

}  // namespace tessera
