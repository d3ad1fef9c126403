#include "rows/row_tree.h"

#include <algorithm>
#include <utility>

namespace tessera {
namespace {

// The bits of levels lower than `level`.
std::uint64_t bitsBelow(std::int32_t level) {
  return level >= 64 ? ~std::uint64_t{0} : (std::uint64_t{1} << level) - 1;
}

}  // namespace

void RowTree::buildPlain(std::int32_t count) {
  isPlain_ = true;
  plainCount_ = std::max(count, 0);
}

void RowTree::buildTree(bool expanded, std::span<const std::int32_t> levels) {
  isPlain_ = false;
  groups_.clear();
  outline_.assign(Outline::Parents::First, expanded, levels);
}

void RowTree::buildGroups(GroupLevels groups, bool expanded, std::span<const std::int32_t> levels) {
  isPlain_ = false;
  groups_ = std::move(groups);
  outline_.assign(Outline::Parents::Last, expanded, levels);
}

void RowTree::appendToTree(std::span<const std::int32_t> levels) { outline_.append(levels); }

void RowTree::insert(Row row, std::span<const std::int32_t> levels) {
  if (isPlain_) return setPlainCount(plainCount_ + static_cast<std::int32_t>(levels.size()));
  outline_.insert(positionOf(row), levels);
}

void RowTree::erase(Row row, std::int32_t count) {
  if (isPlain_) return setPlainCount(plainCount_ - count);
  outline_.erase(positionOf(row), positionOf(row) + count);
}

void RowTree::toggle(Row row) {
  const std::int32_t position = positionOf(row);
  if (outline_.state(position) == RowState::Collapsed) {
    outline_.expand(position);
  } else {
    outline_.collapse(position);
  }
}

void RowTree::expandAncestors(Row row) {
  while (!isPlain_ && shownAncestor(row) != row) outline_.expand(positionOf(shownAncestor(row)));
}

Row RowTree::find(std::int32_t number) const {
  if (number < 1 || number > rowCount()) return noRow;
  const Row row{number};
  return isPlain_ || outline_.level(positionOf(row)) != Outline::noLevel ? row : noRow;
}

Row RowTree::shownAncestor(Row row) const {
  return isPlain_ ? row : rowAt(outline_.shownAncestor(positionOf(row)));
}

std::int32_t RowTree::ordinal(Row row) const {
  return isPlain_ ? row.number : outline_.ordinal(positionOf(shownAncestor(row)));
}

Row RowTree::nth(std::int32_t ordinal) const {
  if (isPlain_) return find(ordinal);
  return ordinal < 1 ? noRow : rowAt(outline_.nth(ordinal));
}

Row RowTree::NextRow(Row row) const {
  if (!row || isPlain_) return row && row.number < plainCount_ ? Row{row.number + 1} : noRow;
  return rowAt(outline_.next(positionOf(shownAncestor(row))));
}

Row RowTree::PreviousRow(Row row) const {
  if (!row || isPlain_) return row ? find(row.number - 1) : noRow;
  return rowAt(outline_.previous(positionOf(shownAncestor(row))));
}

bool RowTree::isBefore(Row a, Row b) const {
  return isPlain_ ? a.number < b.number : outline_.isBefore(positionOf(a), positionOf(b));
}

bool RowTree::isAncestor(Row row, Row ancestor) const {
  if (isPlain_) return false;
  const Outline::Range below = outline_.subtree(positionOf(ancestor));
  return positionOf(row) >= below.first && positionOf(row) < below.behind;
}

Row RowTree::parent(Row row) const { return isPlain_ ? noRow : rowAt(outline_.parent(positionOf(row))); }

Row RowTree::nextSibling(Row row) const {
  return isPlain_ ? find(row.number + 1) : rowAt(outline_.nextSibling(positionOf(row)));
}

Row RowTree::previousSibling(Row row) const {
  return isPlain_ ? find(row.number - 1) : rowAt(outline_.previousSibling(positionOf(row)));
}

RowTree::Span RowTree::subtree(Row row) const {
  if (isPlain_) return {row, 1};
  const Outline::Range below = outline_.subtree(positionOf(row));
  return {rowAt(std::min(positionOf(row), below.first)), below.behind - below.first + 1};
}

Row RowTree::firstIn(RowState state, Row from) const {
  return isPlain_ ? noRow : rowAt(outline_.firstIn(state, positionOf(from)));
}

std::uint64_t RowTree::goesOnBit(std::int32_t position) const {
  const std::int32_t level = outline_.level(position);
  return level < 64 && outline_.hasNextSibling(position) ? std::uint64_t{1} << level : 0;
}

RowView RowTree::place(Row row) const {
  RowView view{.row = row};
  if (isPlain_) return view;
  view.level = outline_.level(positionOf(row));
  view.state = outline_.state(positionOf(row));
  const auto group = static_cast<std::size_t>(view.level) - 1;
  if (group < groups_.size()) view.groupColumn = groups_[group].columnIndex;
  return view;
}

RowView RowTree::view(Row row) const {
  RowView view = place(row);
  view.isFirst = row == first();
  if (isPlain_) {
    view.goesOn = row.number < plainCount_ ? 1 : 0;
  } else {
    for (std::int32_t at = positionOf(row); at >= 0; at = outline_.parent(at)) view.goesOn |= goesOnBit(at);
  }
  return view;
}

// Whatever stands above a row stands above the one before it as well, or is that row.
void RowTree::view(std::span<const Row> page, std::vector<RowView>& views) const {
  views.clear();
  for (const Row row : page) {
    if (isPlain_ || views.empty()) {
      views.push_back(view(row));
      continue;
    }
    RowView next = place(row);
    next.goesOn = (views.back().goesOn & bitsBelow(next.level)) | goesOnBit(positionOf(row));
    views.push_back(next);
  }
}

}  // namespace tessera
