// The grid's own arrangement of the dataset's rows.

#pragma once

#include <cstdint>
#include <span>
#include <vector>

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
  // As Outline::assign() says, one level a row.
  void buildOutline(Outline::Parents parents, bool expanded, std::span<const std::int32_t> levels);
  // More rows behind the last one of an outline whose parents come first.
  void appendToOutline(std::span<const std::int32_t> levels);

  // Opens or closes a row that has children; what was open or closed below it stays so.
  void toggle(Row row);
  void expandAll() { outline_.expandAll(); }
  void collapseAll() { outline_.collapseAll(); }
  // Makes a row displayable.
  void expandAncestors(Row row);

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
  Row NextRow(Row row) const { return row ? nth(ordinal(row) + 1) : noRow; }
  Row PreviousRow(Row row) const { return row ? nth(ordinal(row) - 1) : noRow; }
  Row first() const { return nth(1); }
  Row lastDisplayable() const { return nth(displayCount()); }
  // The place of a row, or of its shown ancestor, among the displayable ones, from 1.
  std::int32_t ordinal(Row row) const;
  // The displayable row at an ordinal, noRow when out of range.
  Row nth(std::int32_t ordinal) const;
  // Whether `a` stands before `b` in the order of the tree.
  bool isBefore(Row a, Row b) const;
  bool isAncestor(Row row, Row ancestor) const;

  RowView view(Row row) const;
  // The views of displayable rows that follow each other.
  void view(std::span<const Row> page, std::vector<RowView>& views) const;

 private:
  // Between rows of an outline and their positions.
  static std::int32_t positionOf(Row row) { return row.number - 1; }
  static Row rowAt(std::int32_t position) { return {position + 1}; }
  std::uint64_t goesOnBit(std::int32_t position) const;

  bool isPlain_ = true;
  std::int32_t plainCount_ = 0;
  Outline outline_;
};

}  // namespace tessera
