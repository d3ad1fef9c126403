// The input method that belongs to the focus cell.

#pragma once

#include "interaction/grid_parts.h"

namespace tessera {

// The column's wish when it has one, else the control's. Nothing in row mode and without a focus column.
void applyImeMode(const GridParts& parts);

}  // namespace tessera
