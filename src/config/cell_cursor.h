// The cursor over a cell.

#pragma once

#include "config/cell_style.h"

namespace tessera {

// The stored cursor, or the number of the word that the style's cursor expression gives; 1 for a value that
// is no text.
std::int32_t effectiveCursor(const CellStyle& style, std::int32_t stored, EvalState& state);

}  // namespace tessera
