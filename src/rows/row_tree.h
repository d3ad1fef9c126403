// The grid's own arrangement of the dataset's rows.

#pragma once

#include <cstdint>

#include "rows/row_node.h"
#include "rows/row_pages.h"

namespace tessera {

// Three row numbers must not be mixed: the dataset row (RowNode::row), the ordinal among displayable nodes
// (1-based, what scroll bars count) and the index among the rows on the page. In a plain grid every row is a
// child of the root and its ordinal is its number, so all questions are answered by arithmetic.
class RowTree {
 public:
  RowTree() { reset(); }
  RowTree(const RowTree&) = delete;
  RowTree& operator=(const RowTree&) = delete;

  // A fresh root, state expanded, and no rows.
  void reset();
  // Rows 1 to `count`. Costs nothing a row.
  void buildPlain(std::int32_t count);
  // A plain tree grows or shrinks at its end; numbers stay dense. Nodes behind the end keep their address,
  // but no walk or search meets them any more.
  void setPlainCount(std::int32_t count);

  // The node of a dataset row, null when the tree has none.
  RowNode* find(std::int32_t row);
  // The neighbours among displayable nodes, null at the ends.
  RowNode* NextRow(const RowNode* node);
  RowNode* PreviousRow(const RowNode* node);
  RowNode* first() { return find(1); }
  RowNode* lastDisplayable() { return find(displayCount_); }
  // The place of a displayable node among all of them, from 1.
  std::int32_t ordinal(const RowNode* node) const { return RowNumber(node); }
  // The displayable node at an ordinal, null when out of range.
  RowNode* nth(std::int32_t ordinal) { return find(ordinal); }
  // Whether `a` stands before `b` in the order of the tree.
  bool isBefore(const RowNode* a, const RowNode* b) const { return a->row < b->row; }

  bool empty() const { return displayCount_ == 0; }
  std::int32_t displayCount() const { return displayCount_; }
  std::size_t nodePages() const { return pages_.pageCount(); }

 private:
  RowNode root_;
  RowPages pages_;
  std::int32_t displayCount_ = 0;
};

}  // namespace tessera
