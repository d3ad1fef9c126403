// Copies of rows at another place of the tree.

#pragma once

#include <cstdint>
#include <vector>

#include "interaction/grid_parts.h"
#include "interaction/row_edit.h"

namespace tessera {

// New rows of the data set that take all values of others.
class RowCopy {
 public:
  enum class Place { Behind, FirstChild };

  RowCopy(GridParts& parts, RowEdit& edit) : parts_(parts), edit_(edit) {}

  // `source` with all that stands below it, beside or below `target`, which is not one of them; in a tree the
  // copies get the levels that they have there. noRow when the data set refuses, and nothing is left then of
  // what came before, or when the edit does not hold any more.
  Row copy(Row source, Row target, Place place);

 private:
  std::vector<std::int32_t> levelsBelow(Row source, std::int32_t level) const;
  bool copyRows(Row source, Row first);
  bool copyValues(Row from, Row to, std::int32_t level);

  GridParts& parts_;
  RowEdit& edit_;
  std::vector<std::int32_t> levels_;  // of the copies
  std::vector<Row> copies_;
};

}  // namespace tessera
