#include "rows/row_tree.h"

#include <algorithm>

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

void RowTree::buildOutline(Outline::Parents parents, bool expanded, std::span<const std::int32_t> levels) {
  isPlain_ = false;
  outline_.assign(parents, expanded, levels);
}

void RowTree::appendToOutline(std::span<const std::int32_t> levels) { outline_.append(levels); }

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

bool RowTree::isBefore(Row a, Row b) const {
  return isPlain_ ? a.number < b.number : outline_.isBefore(positionOf(a), positionOf(b));
}

bool RowTree::isAncestor(Row row, Row ancestor) const {
  if (isPlain_) return false;
  const Outline::Range below = outline_.subtree(positionOf(ancestor));
  return positionOf(row) >= below.first && positionOf(row) < below.behind;
}

std::uint64_t RowTree::goesOnBit(std::int32_t position) const {
  const std::int32_t level = outline_.level(position);
  return level < 64 && outline_.hasNextSibling(position) ? std::uint64_t{1} << level : 0;
}

RowView RowTree::view(Row row) const {
  RowView view{.row = row, .isFirst = row == first()};
  if (isPlain_) {
    view.goesOn = row.number < plainCount_ ? 1 : 0;
    return view;
  }
  const std::int32_t own = positionOf(row);
  view.level = outline_.level(own);
  view.state = outline_.state(own);
  for (std::int32_t at = own; at >= 0; at = outline_.parent(at)) view.goesOn |= goesOnBit(at);
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
    const std::int32_t own = positionOf(row);
    const std::int32_t level = outline_.level(own);
    const std::uint64_t above = views.back().goesOn & bitsBelow(level);
    views.push_back(
        {.row = row, .level = level, .state = outline_.state(own), .goesOn = above | goesOnBit(own)});
  }
}

}  // namespace tessera
