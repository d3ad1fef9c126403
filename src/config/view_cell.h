// The piece of a column that is drawn once for every data row.

#pragma once

#include "config/cell_style.h"
#include "shared/rect.h"

namespace tessera {

struct ViewCell : CellStyle {
  Rect rect;                // client x, y from the top of the row
  std::int32_t cursor = 1;  // cursor number
  std::int32_t layoutLeft = 0;
  std::int32_t layoutRight = 0;
  XString text;  // shown when literalTextBit is set

  std::int32_t effectiveCursor(EvalState& state) const;
};

}  // namespace tessera
