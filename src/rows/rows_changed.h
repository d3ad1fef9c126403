// How the numbers of the rows move when the data set takes rows in or out.

#pragma once

#include <algorithm>
#include <cstdint>

#include "rows/row.h"
#include "shared/rect.h"

namespace tessera {

// Whoever holds rows passes each of them through one of these, or drops it.
struct RowsChanged {
  std::int32_t first = 0;  // the first row that has another number afterwards, or is gone
  std::int32_t come = 0;   // rows that came in before it
  std::int32_t gone = 0;   // rows from it on that went

  static RowsChanged inserted(std::int32_t row) { return {std::max(row, 1), 1, 0}; }
  static RowsChanged deleted(std::int32_t row) { return {std::max(row, 1), 0, 1}; }
  // Only the first `count` rows are left.
  static RowsChanged cutTo(std::int32_t count) {
    return {addClamped(std::max(count, 0), 1), 0, subClamped(INT32_MAX, std::max(count, 0))};
  }

  // The row's new number, noRow for one that went.
  Row operator()(Row row) const {
    if (row.number < first) return row;
    if (subClamped(row.number, first) < gone) return noRow;
    return {addClamped(row.number, come - gone)};
  }
};

}  // namespace tessera
