// Making columns as wide as what they show.

#pragma once

#include "interaction/grid_parts.h"
#include "shared/grid_services.h"

namespace tessera {

// Columns of the last header line get the width of their widest cell, columns of the lines above only grow.
// No column becomes wider than the page. The grid scrolls home, then to the focus cell, and repaints. Nothing
// without a window or a data set.
void fitArrange(GridParts& parts, GridServices& services);

}  // namespace tessera
