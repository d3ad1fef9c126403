// Fills the page around the dataset's current row and puts the focus there.

#pragma once

#include "binding/data_link.h"
#include "geometry/column_scroll.h"

namespace tessera {

struct PageLoader {
  ColumnList& columns;
  GridMetrics& metrics;
  PageView& page;
  const RowTree& rows;
  FocusModel& focus;
  DataLink& link;
  const GridFrame& frame;

  // Page and focus start anew, the focus column as takeColumn() finds it.
  void LoadVisibleRows(bool keepColumn);
  // The focus column is the one that FocusColumnName names, when `keepColumn` is set or the name is not
  // empty; else the leftmost one of the first line.
  void takeColumn(bool keepColumn);
  // Row mode: every row with the dataset's selected flag, then the current row at the head.
  void rebuildSelectedRows();
  // The focus moves to this column: FocusLeft and CurrentLine follow, and the view scrolls to it.
  void focusOn(ColumnPosition column);

 private:
  ColumnPosition namedColumn() const;
  ColumnPosition leftmostOfFirstLine() const;
};

}  // namespace tessera
