#include "rows/row_tree.h"

#include <algorithm>

namespace tessera {

void RowTree::reset() {
  root_ = RowNode{};
  root_.state = RowState::Expanded;
  pages_.clear();
  displayCount_ = 0;
}

void RowTree::buildPlain(std::int32_t count) {
  reset();
  displayCount_ = std::max(count, 0);
}

void RowTree::setPlainCount(std::int32_t count) { displayCount_ = std::max(count, 0); }

RowNode* RowTree::find(std::int32_t row) {
  return row >= 1 && row <= displayCount_ ? pages_.node(row, &root_) : nullptr;
}

RowNode* RowTree::NextRow(const RowNode* node) {
  return node && node->row < displayCount_ ? find(node->row + 1) : nullptr;
}

RowNode* RowTree::PreviousRow(const RowNode* node) { return node ? find(node->row - 1) : nullptr; }

}  // namespace tessera
