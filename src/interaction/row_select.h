// The focus row, the selected rows, and their flags in the data set.

#pragma once

#include <cstdint>
#include <vector>

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

  RowNode* head() const {
    return parts_.focus.SelectedRows.empty() ? nullptr : parts_.focus.SelectedRows.front();
  }
  bool holds(const RowNode* row) const { return parts_.focus.SelectedRows.holds(row); }

  // `row` gets the only flag; in which mode and where it is stored is the caller's business. It may be
  // another node afterwards.
  bool markOnly(RowNode*& row);

  // Lead to row mode.
  bool selectOnly(RowNode* row);
  // In or out of the selection; false also when it is all that is selected, which it stays.
  bool toggle(RowNode* row);
  // From the head to `row`, both included, and nothing else. The head stays the head.
  bool extendTo(RowNode* row);

  // The data set's current row has become `row` (null: one without a node): it is the focus row now, or takes
  // the head's place.
  bool follow(RowNode* row);
  // Rows from `row` on have other numbers: by 1 more when it came in, by 1 less when it is gone. Focus and
  // selection name the same rows as before.
  void rowInserted(std::int32_t row);
  void rowDeleted(std::int32_t row);
  // The rows behind `count` are gone.
  void rowsCut(std::int32_t count);

 private:
  using Numbers = std::vector<std::int32_t>;

  Numbers marked() const;
  bool flag(const Numbers& off, const Numbers& on);
  void toRowMode();
  bool followInRowMode(RowNode* row);
  // `newNumber` gives 0 for a row that is gone.
  template <class NewNumber>
  void renumber(NewNumber newNumber);

  GridParts& parts_;
  const GridServices& services_;
};

}  // namespace tessera
