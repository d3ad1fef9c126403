// The dataset's number of a row.

#pragma once

#include <cstdint>

namespace tessera {

// A row is held by its number in the data set, from 1; 0 is no row. The type keeps it apart from the two
// other numbers that a row has: its ordinal among the rows that can be displayed and its index on the page.
// Numbers say nothing about the order of rows in a grid with groups: ask RowTree::isBefore().
struct Row {
  std::int32_t number = 0;

  explicit operator bool() const { return number != 0; }
  friend bool operator==(Row, Row) = default;
};

inline constexpr Row noRow{};

}  // namespace tessera
