#include "interaction/tree_box_hit.h"

#include "render/tree_layout.h"

namespace tessera {

bool hitsTreeBox(const TreeInfo& tree, const ColumnRecord& column, const Rect& cell, const RowView& node,
                 Point at) {
  constexpr std::int32_t slack = 2;  // pixels around the box that count as the box
  if (tree.rowMode == RowMode::Plain || !column.hasTree || node.state == RowState::Leaf) return false;
  const TreeLayout layout(tree, column.view.leftMargin);
  const std::int32_t half = tree.thumbSize / 2;
  const std::int32_t left = subClamped(addClamped(cell.left, layout.lineX(node.level)), half + slack);
  const std::int32_t top = subClamped(addClamped(cell.top, cell.height() / 2), half + slack);
  const std::int32_t side = addClamped(tree.thumbSize, 2 * slack);
  return Rect{left, top, addClamped(left, side), addClamped(top, side)}.holds(at.x, at.y);
}

}  // namespace tessera
