// The selected rows of row mode.

#pragma once

#include "binding/data_link.h"
#include "geometry/focus_model.h"
#include "rows/row_tree.h"

namespace tessera {

// Each selected row has its flag in the data set; the first one is where the next step starts.
struct RowSelection {
  FocusModel& focus;
  RowTree& rows;
  DataLink& link;

  RowNode* head() const { return focus.SelectedRows.empty() ? nullptr : focus.SelectedRows.front(); }
  bool holds(const RowNode* row) const;
  // Nothing is selected any more.
  void clear();
  void selectOnly(RowNode* row);
  // In or out of the selection; false when it is all that is selected, which it stays.
  bool toggle(RowNode* row);
  // From the head to `row`, both included, and nothing else. The head stays the head.
  void extendTo(RowNode* row);
};

}  // namespace tessera
