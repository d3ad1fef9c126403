// Which cell has the focus, or which rows are selected.

#pragma once

#include <cstdint>

#include "config/column_record.h"
#include "rows/row_list.h"

namespace tessera {

enum class FocusState : std::int32_t { Outside = 1, Grid = 2, Editor = 3, List = 4 };

struct FocusModel {
  bool CellMode = true;                    // one cell has the focus; false: whole rows are selected
  std::int32_t FocusLeft = 0;              // left edge of the focus cell's view
  std::int32_t CurrentLine = 0;            // index of the focus cell's line in GridMetrics::LineTops
  Row FocusRow;                            // row of the focus cell
  ColumnPosition FocusColumn = nullptr;    // column of the focus cell; null in row mode
  XString FocusColumnName;                 // dataset column to find the focus column again by
  RowList SelectedRows;                    // row mode; the first is the row of the last selection step
  RowList leftFlags;                       // neither, but flagged as selected until the next move
  FocusState state = FocusState::Outside;  // where the keyboard focus is

  // Every row and column reference goes; modes and the name stay.
  void forget() {
    FocusRow = noRow;
    FocusColumn = nullptr;
    SelectedRows.clear();
    leftFlags.clear();
  }
  // FocusLeft is where the focus column stands now; to be called whenever columns have moved.
  void followColumn() {
    if (FocusColumn) FocusLeft = FocusColumn->value().view.rect.left;
  }
  // The row that a step starts from: the focus row, in row mode the head of the selected rows.
  Row currentRow() const { return CellMode ? FocusRow : SelectedRows.front(); }
  // Focus and selection name the same rows as before, as far as these are left.
  void renumber(const RowsChanged& change) {
    if (FocusRow) FocusRow = change(FocusRow);
    SelectedRows.renumber(change);
    leftFlags.renumber(change);
  }
};

}  // namespace tessera
