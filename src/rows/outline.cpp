#include "rows/outline.h"

#include <algorithm>

namespace tessera {
namespace {

// Makes entries of rows whose parents come first.
class EntryMaker {
 public:
  explicit EntryMaker(RowState parentState) : parentState_(parentState) {}

  // A row that stands already: the last one of its level for the time being.
  void follow(const OutlineEntry& entry) {
    const bool isOpen = (entry.state == RowState::Leaf ? parentState_ : entry.state) == RowState::Expanded;
    hiddenBelow_.resize(static_cast<std::size_t>(entry.level) + 1);
    hiddenBelow_.back() = entry.hidden + (isOpen ? 0 : 1);
  }

  std::vector<OutlineEntry> make(std::span<const std::int32_t> levels) {
    std::vector<OutlineEntry> entries(levels.size());
    OutlineEntry* last = nullptr;
    for (std::size_t index = 0; index < levels.size(); ++index) {
      OutlineEntry& entry = entries[index];
      entry.level = levels[index];
      entry.hidden = OutlineEntry::forEver;
      if (entry.level == OutlineEntry::noLevel) continue;
      entry.hidden = hiddenBelow_[static_cast<std::size_t>(entry.level) - 1];
      if (last && entry.level > last->level) last->state = parentState_;
      last = &entry;
      follow(entry);
    }
    return entries;
  }

 private:
  RowState parentState_;
  std::vector<std::int32_t> hiddenBelow_{0};  // by level: what a child of its last row starts with
};

}  // namespace

void Outline::assign(Parents parents, bool expanded, std::span<const std::int32_t> levels) {
  parents_ = parents;
  expanded_ = expanded;
  rows_.clear();
  EntryMaker maker(parentState());
  if (parents == Parents::First) return rows_.append(maker.make(levels));
  std::vector<std::int32_t> backwards(levels.rbegin(), levels.rend());
  std::vector<OutlineEntry> entries = maker.make(backwards);
  std::reverse(entries.begin(), entries.end());
  rows_.append(entries);
}

// The rows that come stand below `parent`; in the order of levels from the parents' side.
std::vector<OutlineEntry> Outline::makeBelow(std::int32_t parent,
                                             std::span<const std::int32_t> levels) const {
  EntryMaker maker(parentState());
  std::vector<OutlineEntry> path;
  for (std::int32_t row = parent; row >= 0; row = this->parent(row)) path.push_back(rows_.at(row));
  std::for_each(path.rbegin(), path.rend(), [&](const OutlineEntry& entry) { maker.follow(entry); });
  return maker.make(levels);
}

void Outline::append(std::span<const std::int32_t> levels) {
  const std::int32_t last = size() - 1;
  const std::vector<OutlineEntry> entries = makeBelow(last, levels);
  if (last >= 0 && !levels.empty() && levels.front() > level(last)) rows_.setState(last, parentState());
  rows_.append(entries);
}

void Outline::insert(std::int32_t position, std::span<const std::int32_t> levels) {
  const bool first = parents_ == Parents::First;
  const std::int32_t above = parentFor(position, first ? levels.front() : levels.back());
  std::vector<std::int32_t> fromParents(levels.begin(), levels.end());
  if (!first) std::reverse(fromParents.begin(), fromParents.end());
  std::vector<OutlineEntry> entries = makeBelow(above, fromParents);
  if (!first) std::reverse(entries.begin(), entries.end());
  if (above >= 0 && state(above) == RowState::Leaf) rows_.setState(above, parentState());
  rows_.insert(position, entries);
}

void Outline::erase(std::int32_t first, std::int32_t behind) {
  if (first >= behind) return;
  const bool parentsFirst = parents_ == Parents::First;
  std::int32_t above = parent(parentsFirst ? first : behind - 1);
  rows_.erase(first, behind);
  if (!parentsFirst && above >= 0) above -= behind - first;
  if (above >= 0 && !hasChildren(above)) rows_.setState(above, RowState::Leaf);
}

Outline::Range Outline::subtree(std::int32_t position) const {
  const std::int32_t own = level(position);
  if (parents_ == Parents::Last) return {rows_.lastUpTo(own, position) + 1, position};
  const std::int32_t behind = rows_.firstUpTo(own, position + 1);
  return {position + 1, behind < 0 ? size() : behind};
}

std::int32_t Outline::parentFor(std::int32_t position, std::int32_t level) const {
  return parents_ == Parents::Last ? rows_.firstUpTo(level - 1, position)
                                   : rows_.lastUpTo(level - 1, position);
}

std::int32_t Outline::parent(std::int32_t position) const {
  const std::int32_t own = level(position);
  return parentFor(parents_ == Parents::Last ? position + 1 : position, own);
}

std::int32_t Outline::ofLevel(std::int32_t position, std::int32_t level) const {
  return position >= 0 && this->level(position) == level ? position : -1;
}

std::int32_t Outline::nextSibling(std::int32_t position) const {
  const std::int32_t own = level(position);
  return ofLevel(rows_.firstUpTo(own, position + 1), own);
}

std::int32_t Outline::previousSibling(std::int32_t position) const {
  const std::int32_t own = level(position);
  return ofLevel(rows_.lastUpTo(own, position), own);
}

bool Outline::hasChildren(std::int32_t position) const {
  const std::int32_t below = level(position) + 1;
  const bool last = parents_ == Parents::Last;
  return ofLevel(last ? rows_.lastUpTo(below, position) : rows_.firstUpTo(below, position + 1), below) >= 0;
}

bool Outline::isBefore(std::int32_t a, std::int32_t b) const {
  if (parents_ == Parents::First || a == b) return a < b;
  return a < b ? subtree(b).first > a : subtree(a).first <= b;
}

// What stands between a hidden row and the outermost collapsed one above it is hidden as well.
std::int32_t Outline::shownAncestor(std::int32_t position) const {
  if (rows_.at(position).hidden == 0) return position;
  const std::int32_t before = rows_.shownBefore(position);
  return rows_.nthShown(parents_ == Parents::Last ? before + 1 : before);
}

// In a postorder what is shown above a row are the rows in front of its subtree and its ancestors.
std::int32_t Outline::ordinal(std::int32_t position) const {
  if (parents_ == Parents::First) return rows_.shownBefore(position) + 1;
  return rows_.shownBefore(subtree(position).first) + level(position);
}

std::int32_t Outline::nth(std::int32_t ordinal) const {
  return parents_ == Parents::First ? rows_.nthShown(ordinal) : nthOfPostorder(ordinal);
}

// From the outermost rows down: the subtrees of one level follow each other in both orders.
std::int32_t Outline::nthOfPostorder(std::int32_t ordinal) const {
  std::int32_t shownInFront = 0;
  for (std::int32_t level = 1;; ++level) {
    const std::int32_t inside = rows_.nthShown(shownInFront + ordinal);
    if (inside < 0) return -1;
    const std::int32_t top = rows_.firstUpTo(level, inside);
    const std::int32_t before = rows_.shownBefore(subtree(top).first);
    ordinal -= before - shownInFront;
    if (ordinal == 1) return top;
    --ordinal;
    shownInFront = before;
  }
}

// Its first child, or what comes behind its subtree: in a postorder a parent stands there that is shown
// already.
std::int32_t Outline::next(std::int32_t position) const {
  OutlineEntry row = rows_.at(position);
  const bool isOpen = row.state == RowState::Expanded;
  if (parents_ == Parents::First) return rows_.firstUpTo(row.level + (isOpen ? 1 : 0), position + 1);
  if (isOpen) return rows_.firstUpTo(row.level + 1, subtree(position).first);
  while (true) {
    const std::int32_t behind = rows_.firstUpTo(row.level, position + 1);
    if (behind < 0) return -1;
    const std::int32_t above = row.level;
    row = rows_.at(behind);
    if (row.level == above) return behind;
    position = behind;
  }
}

// The parent, or the last row that is shown of the sibling in front.
std::int32_t Outline::previous(std::int32_t position) const {
  if (parents_ == Parents::First) {
    const std::int32_t before = rows_.lastUpTo(noLevel - 1, position);
    return before < 0 ? -1 : shownAncestor(before);
  }
  std::int32_t row = previousSibling(position);
  if (row < 0) return parent(position);
  while (state(row) == RowState::Expanded) row = rows_.lastUpTo(level(row) + 1, row);
  return row;
}

void Outline::toggle(std::int32_t position, RowState state, std::int32_t hidden) {
  const Range range = subtree(position);
  rows_.addHidden(range.first, range.behind, hidden);
  rows_.setState(position, state);
}

void Outline::expandAll() {
  rows_.changeAll([](OutlineEntry& entry) {
    if (entry.level == noLevel) return;
    entry.hidden = 0;
    if (entry.state == RowState::Collapsed) entry.state = RowState::Expanded;
  });
}

void Outline::collapseAll() {
  rows_.changeAll([](OutlineEntry& entry) {
    if (entry.level == noLevel) return;
    entry.hidden = entry.level - 1;
    if (entry.state == RowState::Expanded) entry.state = RowState::Collapsed;
  });
}

}  // namespace tessera
