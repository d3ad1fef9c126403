// The grid's own arrangement of the dataset's rows.

#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "rows/row_view.h"

namespace tessera {

// Three numbers must not be mixed: the dataset row (Row), the ordinal among displayable rows (1-based, what
// scroll bars count) and the index among the rows on the page. Nothing is kept for a row of a plain grid: its
// ordinal is its number. All questions are const and may be asked by a second thread while nobody changes the
// tree.
class RowTree {
 public:
  // Rows 1 to `count`.
  void buildPlain(std::int32_t count);
  // A plain tree grows or shrinks at its end; numbers stay dense.
  void setPlainCount(std::int32_t count) { buildPlain(count); }

  // How many rows of the data set have a place here, and how many of them are displayable.
  std::int32_t rowCount() const { return rowCount_; }
  std::int32_t displayCount() const { return rowCount_; }
  bool empty() const { return displayCount() == 0; }

  // noRow for a number that has no place here.
  Row find(std::int32_t number) const;
  // The neighbours among displayable rows, noRow at the ends.
  Row NextRow(Row row) const { return row ? find(row.number + 1) : noRow; }
  Row PreviousRow(Row row) const { return row ? find(row.number - 1) : noRow; }
  Row first() const { return find(1); }
  Row lastDisplayable() const { return find(rowCount_); }
  // The place of a row among the displayable ones, from 1.
  std::int32_t ordinal(Row row) const { return row.number; }
  // The displayable row at an ordinal, noRow when out of range.
  Row nth(std::int32_t ordinal) const { return find(ordinal); }
  // Whether `a` stands before `b` in the order of the tree.
  bool isBefore(Row a, Row b) const { return a.number < b.number; }
  RowView view(Row row) const;
  // The views of rows that follow each other on a page.
  void view(std::span<const Row> page, std::vector<RowView>& views) const;

 private:
  std::int32_t rowCount_ = 0;
};

}  // namespace tessera
