// Takes rows out of the data set, each with all that stands below it.

#pragma once

#include <vector>

#include "interaction/grid_parts.h"
#include "interaction/row_edit.h"

namespace tessera {

// Of a group only its members are deleted: the rows that sum them go by themselves, and so do those of the
// groups around it that are left empty. A data set that keeps deleted rows really loses only those that were
// inserted since its rows were loaded; the others stay as rows that are marked.
class RowRemoval {
 public:
  RowRemoval(GridParts& parts, RowEdit& edit, bool keepDeleted)
      : parts_(parts), edit_(edit), keepDeleted_(keepDeleted) {}

  // What the data set refuses stays. False when the edit does not hold any more.
  bool remove(Row row) { return keepDeleted_ ? mark(row) : purge(row); }

 private:
  bool purge(Row row);
  bool mark(Row row);
  void markSingle(Row row);
  bool isGroup() const { return parts_.config.tree.rowMode == RowMode::Group; }
  Row topOfEmptied(Row row) const;
  std::vector<Row> leavesOf(Row row) const;
  std::vector<Row> childrenFirst(Row row) const;

  GridParts& parts_;
  RowEdit& edit_;
  bool keepDeleted_;
};

}  // namespace tessera
