// The grid's own arrangement of the dataset's rows.

#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "rows/group_levels.h"
#include "rows/outline.h"
#include "rows/row_view.h"

namespace tessera {

// Three numbers must not be mixed: the dataset row (Row), the ordinal among displayable rows (1-based, what
// scroll bars count) and the index among the rows on the page. Nothing is kept for a row of a plain grid: its
// ordinal is its number. A row of an outline is displayable when none of its ancestors is collapsed. All
// questions are const and may be asked by a second thread while nobody changes the tree; none costs more than
// O(log n), in an outline whose parents come last O(log n) for each level.
class RowTree {
 public:
  // Rows 1 to `count`, all of them displayable.
  void buildPlain(std::int32_t count);
  // A plain tree grows or shrinks at its end; numbers stay dense.
  void setPlainCount(std::int32_t count) { buildPlain(count); }
  // As Outline::assign() says, one level a row: a tree, whose parents come first, or groups, whose parents
  // sum the rows in front of them.
  void buildTree(bool expanded, std::span<const std::int32_t> levels);
  void buildGroups(GroupLevels groups, bool expanded, std::span<const std::int32_t> levels);
  // More rows at the end of a tree.
  void appendToTree(std::span<const std::int32_t> levels);
  // Rows come in from `row` on, as Outline::insert() says; in a plain tree as many as there are levels.
  void insert(Row row, std::span<const std::int32_t> levels);
  // `count` rows from `row` on go, as Outline::erase() says.
  void erase(Row row, std::int32_t count);

  // Opens or closes a row that has children; what was open or closed below it stays so.
  void toggle(Row row);
  void expandAll() { outline_.expandAll(); }
  void collapseAll() { outline_.collapseAll(); }
  // Makes a row displayable.
  void expandAncestors(Row row);

  bool isPlain() const { return isPlain_; }
  const GroupLevels& groups() const { return groups_; }

  // How many rows of the data set the tree knows, and how many of them are displayable.
  std::int32_t rowCount() const { return isPlain_ ? plainCount_ : outline_.size(); }
  std::int32_t displayCount() const { return isPlain_ ? plainCount_ : outline_.shown(); }
  bool empty() const { return displayCount() == 0; }

  // noRow for a number that has no place here.
  Row find(std::int32_t number) const;
  // The row itself when it is displayable, else the outermost collapsed one above it.
  Row shownAncestor(Row row) const;
  // The neighbours among displayable rows, noRow at the ends. What lies beside a row that is not displayable
  // lies beside its shown ancestor.
  Row NextRow(Row row) const;
  Row PreviousRow(Row row) const;
  Row first() const { return nth(1); }
  Row lastDisplayable() const { return nth(displayCount()); }
  // The place of a row, or of its shown ancestor, among the displayable ones, from 1.
  std::int32_t ordinal(Row row) const;
  // The displayable row at an ordinal, noRow when out of range.
  Row nth(std::int32_t ordinal) const;
  // Whether `a` stands before `b` in the order of the tree.
  bool isBefore(Row a, Row b) const;
  bool isAncestor(Row row, Row ancestor) const;
  // noRow where there is none. All rows of a plain tree are siblings.
  Row parent(Row row) const;
  Row nextSibling(Row row) const;
  Row previousSibling(Row row) const;
  // The rows that stand with `row` and below it, in the order of the data set.
  struct Span {
    Row first;
    std::int32_t count = 0;
  };
  Span subtree(Row row) const;
  // The first row from `from` on in this state, noRow without one.
  Row firstIn(RowState state, Row from) const;
  // Calls visit(level, state) for all rows of an outline in the order of the data set.
  template <class Visit>
  void visitOutline(Visit visit) const {
    outline_.visitAll(visit);
  }

  // As RowView says.
  std::int32_t level(Row row) const { return isPlain_ ? 0 : outline_.level(positionOf(row)); }
  RowState state(Row row) const { return isPlain_ ? RowState::Leaf : outline_.state(positionOf(row)); }
  RowView view(Row row) const;
  // The views of displayable rows that follow each other.
  void view(std::span<const Row> page, std::vector<RowView>& views) const;

 private:
  // Between rows of an outline and their positions.
  static std::int32_t positionOf(Row row) { return row.number - 1; }
  static Row rowAt(std::int32_t position) { return {position + 1}; }
  std::uint64_t goesOnBit(std::int32_t position) const;
  // The view of the row alone: neither `goesOn` nor `isFirst`.
  RowView place(Row row) const;

  bool isPlain_ = true;
  std::int32_t plainCount_ = 0;
  Outline outline_;
  GroupLevels groups_;
};

}  // namespace tessera
