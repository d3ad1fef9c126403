// How a background image shows through the cells.

#pragma once

#include "config/grid_config.h"

namespace tessera {

// With a background image in force, the view, summary and group cells without a bitmap of their own let it
// shine through, and all of them take its rate; without one those cells are solid again. Also sets how the
// image itself is painted. Runs after every change of the columns or of the background.
void applyBackgroundFlags(GridConfig& config);

}  // namespace tessera
