// Rows in the order of the data set, arranged by their levels.

#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "rows/outline_sequence.h"

namespace tessera {

// Nothing but the levels says who is whose parent, so a row's number is its position, and taking rows in or
// out renumbers nothing. Positions count from 0. Every question and every change of one row, with a subtree
// of any size, takes O(log n), nth() in a postorder O(log n) for each level.
class Outline {
 public:
  // Where a parent stands in the data set: before its children (the rows are a preorder) or behind them (a
  // postorder). Shown are parents before their children in both.
  enum class Parents { First, Last };
  static constexpr std::int32_t noLevel = OutlineEntry::noLevel;

  // Anew from levels, from 1. What must hold: seen from the parents' side no level is more than one deeper
  // than the one before it, those of noLevel left out. Rows with children start as `expanded` says, and so
  // does a row that gets its first child later.
  void assign(Parents parents, bool expanded, std::span<const std::int32_t> levels);
  // More rows at the end of a preorder; the same must hold.
  void append(std::span<const std::int32_t> levels);
  // Rows that come in at `position`: one and all that stands below it, or that one alone. What must hold: the
  // outline is one with them, and no row gets another parent.
  void insert(std::int32_t position, std::span<const std::int32_t> levels);
  // Rows that go. What must hold: whole subtrees.
  void erase(std::int32_t first, std::int32_t behind);

  std::int32_t size() const { return rows_.size(); }
  std::int32_t shown() const { return rows_.shownBefore(size()); }
  std::int32_t level(std::int32_t position) const { return rows_.at(position).level; }
  RowState state(std::int32_t position) const { return rows_.at(position).state; }

  // The rows below a row, from `first` up to, but not including, `behind`; none when the two are equal.
  struct Range {
    std::int32_t first = 0;
    std::int32_t behind = 0;
  };
  Range subtree(std::int32_t position) const;
  // -1 without one.
  std::int32_t parent(std::int32_t position) const;
  bool hasNextSibling(std::int32_t position) const { return nextSibling(position) >= 0; }
  // -1 without one.
  std::int32_t nextSibling(std::int32_t position) const;
  std::int32_t previousSibling(std::int32_t position) const;
  bool hasChildren(std::int32_t position) const;
  // The first row from `from` on in this state, -1 without one.
  std::int32_t firstIn(RowState state, std::int32_t from) const { return rows_.firstIn(state, from); }
  // Calls visit(level, state) for all rows.
  template <class Visit>
  void visitAll(Visit visit) const {
    rows_.visitAll([&visit](const OutlineEntry& entry) { visit(entry.level, entry.state); });
  }
  // Whether `a` stands before `b` where all rows are shown.
  bool isBefore(std::int32_t a, std::int32_t b) const;

  // Itself, or the outermost of its collapsed ancestors. What must hold: the row has a level.
  std::int32_t shownAncestor(std::int32_t position) const;
  // The place among the shown rows, from 1, of a shown row.
  std::int32_t ordinal(std::int32_t position) const;
  // The row at an ordinal, -1 when out of range.
  std::int32_t nth(std::int32_t ordinal) const;
  // The neighbours of a shown row among the shown rows, -1 at the ends.
  std::int32_t next(std::int32_t position) const;
  std::int32_t previous(std::int32_t position) const;

  // What must hold: the row is collapsed; expanded.
  void expand(std::int32_t position) { toggle(position, RowState::Expanded, -1); }
  void collapse(std::int32_t position) { toggle(position, RowState::Collapsed, 1); }
  void expandAll();
  void collapseAll();

 private:
  std::int32_t nthOfPostorder(std::int32_t ordinal) const;
  std::int32_t ofLevel(std::int32_t position, std::int32_t level) const;
  // Where a row of this level at `position` would find its parent, -1 for none.
  std::int32_t parentFor(std::int32_t position, std::int32_t level) const;
  std::vector<OutlineEntry> makeBelow(std::int32_t parent, std::span<const std::int32_t> levels) const;
  void toggle(std::int32_t position, RowState state, std::int32_t hidden);
  RowState parentState() const { return expanded_ ? RowState::Expanded : RowState::Collapsed; }

  OutlineSequence rows_;
  Parents parents_ = Parents::First;
  bool expanded_ = true;
};

}  // namespace tessera
