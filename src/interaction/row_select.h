// The focus row, the selected rows, and their flags in the data set.

#pragma once

#include "interaction/grid_parts.h"
#include "interaction/grid_watch.h"
#include "shared/grid_services.h"

namespace tessera {

// The data set's flag marks the focus row in cell mode and each selected row in row mode, whose first one is
// where the next step starts. The data set may run the host for every flag that it is given: so flags come
// first, and rows are stored when the grid is still the same. What returns false has stored nothing.
class RowSelection {
 public:
  RowSelection(GridParts& parts, const GridServices& services) : parts_(parts), services_(services) {}

  Row head() const { return parts_.focus.SelectedRows.front(); }
  bool holds(Row row) const { return parts_.focus.SelectedRows.holds(row); }

  // `row` gets the only flag; in which mode and where it is stored is the caller's business.
  bool markOnly(Row row);

  // Lead to row mode.
  bool selectOnly(Row row);
  // In or out of the selection; false also when it is all that is selected, which it stays.
  bool toggle(Row row);
  // From the head to `row`, both included, and nothing else. The head stays the head.
  bool extendTo(Row row);

  // The data set's current row has become `row` (noRow: one without a place): it is the focus row now, or
  // takes the head's place.
  bool follow(Row row);

 private:
  RowList marked() const;
  bool flag(const RowList& off, const RowList& on);
  void toRowMode();
  bool followInRowMode(Row row);

  GridParts& parts_;
  const GridServices& services_;
};

}  // namespace tessera
