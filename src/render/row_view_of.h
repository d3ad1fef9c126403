// From the row tree to what painters know of a row.

#pragma once

#include "rows/row_tree.h"
#include "rows/row_view.h"

namespace tessera {

// Its place in the tree is of interest where `isTree`: to find it walks over the rows below.
RowView viewOf(RowTree& rows, const RowNode& node, bool isTree);

}  // namespace tessera
