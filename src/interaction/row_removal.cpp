#include "interaction/row_removal.h"

#include <algorithm>

namespace tessera {

// The outermost row that is left without a child when `row` goes, else the row itself.
Row RowRemoval::topOfEmptied(Row row) const {
  const RowTree& rows = parts_.rows;
  while (isGroup()) {
    const Row parent = rows.parent(row);
    if (!parent || rows.previousSibling(row) || rows.nextSibling(row)) break;
    row = parent;
  }
  return row;
}

std::vector<Row> RowRemoval::leavesOf(Row row) const {
  const RowTree::Span span = parts_.rows.subtree(row);
  std::vector<Row> leaves;
  for (std::int32_t number = span.first.number; number < span.first.number + span.count; ++number) {
    if (parts_.rows.find(number) && parts_.rows.state({number}) == RowState::Leaf) leaves.push_back({number});
  }
  return leaves;
}

// Where the data set lets a parent go in front of its children, these would find another one.
std::vector<Row> RowRemoval::childrenFirst(Row row) const {
  const RowTree::Span span = parts_.rows.subtree(row);
  std::vector<Row> ordered;
  std::vector<Row> open;
  for (std::int32_t number = span.first.number; number < span.first.number + span.count; ++number) {
    const std::int32_t level = parts_.rows.level({number});
    for (; !open.empty() && parts_.rows.level(open.back()) >= level; open.pop_back()) {
      ordered.push_back(open.back());
    }
    open.push_back({number});
  }
  ordered.insert(ordered.end(), open.rbegin(), open.rend());
  return ordered;
}

// Later rows close up, so that a subtree is deleted at one number.
bool RowRemoval::purge(Row row) {
  const Row top = topOfEmptied(row);
  const RowTree::Span whole = parts_.rows.subtree(top);
  const RowTree::Span asked = parts_.rows.subtree(row);
  const std::vector<Row> leaves = isGroup() ? leavesOf(row) : std::vector<Row>();
  const std::size_t calls = isGroup() ? leaves.size() : static_cast<std::size_t>(asked.count);
  std::int32_t gone = 0;
  for (std::size_t call = 0; call < calls; ++call) {
    const std::int32_t went = edit_.erase({isGroup() ? leaves[call].number - gone : row.number});
    if (!edit_.holds()) return false;
    if (went == 0) break;
    gone += went;
  }
  if (gone == whole.count) {
    edit_.left(top, whole.first, gone);
  } else if (gone > 0) {
    edit_.happened({asked.first.number, 0, gone});
    edit_.settle();
  }
  return edit_.holds();
}

bool RowRemoval::mark(Row row) {
  FollowedRows marked(isGroup() ? leavesOf(row) : childrenFirst(row));
  edit_.follow(marked);
  for (std::size_t index = 0; index < marked.size() && edit_.holds(); ++index) {
    if (const Row each = marked.at(index)) markSingle(each);
  }
  edit_.unfollow();
  return edit_.holds();
}

// A parent that really goes leaves its marked children to another one.
void RowRemoval::markSingle(Row row) {
  const Row top = topOfEmptied(row);
  const RowTree::Span whole = parts_.rows.subtree(top);
  const std::int32_t gone = edit_.erase(row);
  if (gone == 0) return;
  if (gone == whole.count) {
    edit_.left(top, whole.first, gone);
  } else {
    edit_.happened({row.number, 0, gone});
    edit_.settle();
  }
}

}  // namespace tessera
