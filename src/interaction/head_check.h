// The check box in a header.

#pragma once

#include "config/header_cell.h"

namespace tessera {

// Where a press ticks the box: one pixel more than the glyph above and below. Empty without a box.
Rect headCheckRect(const HeaderCell& header);

}  // namespace tessera
