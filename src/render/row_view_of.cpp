#include "render/row_view_of.h"

namespace tessera {
namespace {

bool hasNextSibling(RowTree& rows, const RowNode& node) {
  const RowNode* next = rows.NextRow(&node);
  while (next && next->level > node.level) next = rows.NextRow(next);
  return next && next->parent == node.parent;
}

}  // namespace

RowView viewOf(RowTree& rows, const RowNode& node, bool isTree) {
  if (!isTree) return {.row = node.row};
  RowView view{node.row, node.level, node.state, node.groupColumn, 0, rows.first() == &node};
  for (const RowNode* at = &node; at->parent; at = at->parent) {
    if (at->level < 0 || at->level > 63 || !hasNextSibling(rows, *at)) continue;
    view.goesOn |= std::uint64_t{1} << at->level;
  }
  return view;
}

}  // namespace tessera
