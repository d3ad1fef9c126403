// How the edit and list windows look.

#pragma once

#include <cstddef>

#include "shared/color.h"

namespace tessera {

namespace child_look {
inline constexpr ColorRef paper = rgb(255, 255, 255), ink = rgb(0, 0, 0), frame = rgb(100, 100, 100),
                          chosenPaper = rgb(10, 36, 106), chosenInk = rgb(255, 255, 255);
}  // namespace child_look

inline std::size_t toSize(std::int32_t place) { return static_cast<std::size_t>(place); }

}  // namespace tessera
