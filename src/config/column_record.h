// One logical field of the grid with its pieces of appearance.

#pragma once

#include "config/child_spec.h"
#include "config/group_cell.h"
#include "config/header_cell.h"
#include "config/summary_cell.h"
#include "config/view_cell.h"
#include "shared/xlist.h"

namespace tessera {

struct ColumnRecord;

// A column whose change ends a run of merged cells.
struct SuppressRef {
  XString columnId;                      // dataset column name
  const ColumnRecord* column = nullptr;  // null until resolved
  std::int32_t index = -1;               // dataset column number, -1 until resolved
};

struct ColumnRecord {
  HeaderCell header;
  ViewCell view;
  SummaryCell summary;
  XList<GroupCell> groups;  // in document order
  XList<SuppressRef> suppressRefs;
  ChildSpec child;
  XString xlCellFormat;  // number format for spreadsheet export
  XString refColumnId;   // dataset column name; empty for an unbound column
  XString id;            // the column's name in all automation calls
  bool viewVisible = true;
  bool hasTree = false;  // the tree lines and boxes stand in this column
  std::int32_t index = -1;

  // The first group cell of this level, null when there is none.
  const GroupCell* groupOfLevel(std::int32_t level) const;
};

using ColumnList = XList<ColumnRecord>;
// Stays valid while no Refresh runs, also when the list is reordered.
using ColumnPosition = ColumnList::Position;

}  // namespace tessera
