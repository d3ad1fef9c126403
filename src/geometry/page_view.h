// The rows on the page and the scroll positions.

#pragma once

#include <cstdint>
#include <vector>

#include "platform/window.h"
#include "rows/row_tree.h"

namespace tessera {

namespace bar_bit {
inline constexpr std::int32_t horizontal = 1, vertical = 2, both = 3;
}

// VisibleRows holds up to one row more than fits: the last may be partly visible. Where a row lies depends
// only on its place in this list.
class PageView {
 public:
  std::vector<Row> VisibleRows;   // top first
  std::int32_t TopOrdinal = 1;    // ordinal of the first visible row
  std::int32_t ColumnStop = 1;    // 1 plus the steps taken to the right
  std::int32_t ScrollBarsOn = 0;  // bar_bit: bars in use
  BarRange horizontal;            // as last handed to the window

  // No rows on the page; the next ones start at the first.
  void clear() {
    VisibleRows.clear();
    TopOrdinal = 1;
  }

  // -1 for a row that is not on the page.
  std::int32_t VisibleIndex(Row row) const;
  // noRow when out of range.
  Row VisibleAt(std::int32_t index) const;

  // The page that starts at `row`; at the end of the rows it reaches back to stay full.
  void RefillFrom(const RowTree& rows, std::int32_t capacity, Row row);
  // The page on which `row` is the last full row, as far as rows stand above it.
  void fillAround(const RowTree& rows, std::int32_t capacity, Row row);
  // Moves the page so that `row` shows; a row that already shows wholly moves nothing.
  void EnsureRowVisible(const RowTree& rows, std::int32_t capacity, Row row);
  // Brings a row in that the dataset made current: to about the middle of a page that has to jump.
  void bringCurrent(const RowTree& rows, std::int32_t capacity, Row row);

  // `count` rows further down or up; true if the page moved.
  bool RowsDown(const RowTree& rows, std::int32_t capacity, std::int32_t count);
  bool RowsUp(const RowTree& rows, std::int32_t capacity, std::int32_t count);

 private:
  void appendFrom(const RowTree& rows, Row row, std::size_t size);
  void prependUpTo(const RowTree& rows, std::size_t size);
  void jumpTo(const RowTree& rows, std::int32_t topOrdinal, std::size_t size);
  void updateTopOrdinal(const RowTree& rows);
};

}  // namespace tessera
