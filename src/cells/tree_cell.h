// The cells of a tree column.

#pragma once

#include "cells/cell_job.h"

namespace tessera {

// Text, lines and box of a row of any level, whatever the kind of the column's cells.
void paintTreeCell(const CellTools& tools, const CellJob& job);

}  // namespace tessera
