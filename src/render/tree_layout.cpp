#include "render/tree_layout.h"

namespace tessera {

TreeLayout::TreeLayout(const TreeInfo& info, std::int32_t leftMargin) : tree(info), margin(leftMargin) {
  const std::int64_t icon = info.iconSize;
  const std::int64_t box = info.thumbSize;
  step = clampToInt((icon + 2 * static_cast<std::int64_t>(info.indentWidth) + box) / 2);
  odd = (icon + box) % 2 != 0;
}

bool TreeLayout::hasIcon(RowState state) const {
  return !(state == RowState::Expanded ? tree.imageEColumn : tree.imageCColumn).empty();
}

std::int32_t TreeLayout::textLeft(const RowView& node, bool dataRow) const {
  std::int64_t left = hasIcon(node.state) ? tree.iconSize : 0;
  left += static_cast<std::int64_t>(subClamped(node.level, 1)) * step + 2 * static_cast<std::int64_t>(margin);
  left += static_cast<std::int64_t>(tree.indentWidth) + tree.thumbSize;
  if (odd) left += node.level / 2 + 1;
  if (dataRow && node.state == RowState::Leaf) left -= tree.thumbSize / 2;
  return clampToInt(left);
}

std::int32_t TreeLayout::lineX(std::int32_t level) const {
  const std::int32_t first = addClamped(tree.thumbSize / 2, margin);
  const std::int32_t x = addClamped(first, mulClamped(subClamped(level, 1), step));
  return odd && level % 2 == 0 ? addClamped(x, 1) : x;
}

}  // namespace tessera
