// How high the characters of a font are.

#pragma once

#include "shared/log_font.h"
#include "shared/screen.h"

namespace tessera {

// As lfHeight has it, also of a font that names no size.
inline std::int32_t heightOf(const LogFont& font) {
  constexpr std::int32_t defaultPoints = 9;
  return font.lfHeight == 0 ? pointsToHeight(defaultPoints) : font.lfHeight;
}

}  // namespace tessera
