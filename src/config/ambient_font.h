// Fonts that the configuration leaves to the host.

#pragma once

#include <tessera/hosting.h>

#include "config/grid_config.h"

namespace tessera {

// What a style leaves open in force for the state's row takes the host's value: no size, an empty face, no
// font style.
void applyAmbientFont(CellStyle& style, const AmbientFont& font, EvalState& state);

// The same for the indicator and for every header, view, summary and group cell.
void applyAmbientFont(GridConfig& config, const AmbientFont& font, EvalState& state);

}  // namespace tessera
