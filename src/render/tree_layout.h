// Where text, lines and boxes stand in a tree column.

#pragma once

#include <cstdint>

#include "config/tree_info.h"
#include "rows/row_view.h"
#include "shared/rect.h"

namespace tessera {

// All numbers count from the left side of the cell. Room for a node's icon is kept whenever its column is
// named.
struct TreeLayout {
  // `margin` is the left margin of the column's view.
  TreeLayout(const TreeInfo& tree, std::int32_t margin);

  // The left margin of the node's text: a leaf, which has no box, starts half a box earlier.
  std::int32_t textLeft(const RowView& node, bool dataRow) const;
  // The line of a level, from 1: it runs through the middle of the level's boxes.
  std::int32_t lineX(std::int32_t level) const;
  bool hasIcon(RowState state) const;

  const TreeInfo& tree;
  std::int32_t margin = 0;
  std::int32_t step = 0;  // from level to level
  // Icon and box have no common middle: every second level is a pixel further right.
  bool odd = false;
};

}  // namespace tessera
