// Reads the text that defines the columns of a grid.

#pragma once

#include "config/grid_config.h"
#include "config/info_services.h"

namespace tessera {

// Appends one record to config.columns for each COLUMN element of the text, at any depth, in document order,
// and takes the tree settings into config.tree. False when the text is refused, a column has no id or holds
// something else than elements; the columns finished before stay. An empty text has no columns and is no
// failure.
bool parseColumnInfo(InfoServices& services, const XString& text, GridConfig& config);

}  // namespace tessera
