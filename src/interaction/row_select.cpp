#include "interaction/row_select.h"

namespace tessera {

bool RowSelection::holds(const RowNode* row) const { return focus.SelectedRows.holds(row); }

void RowSelection::clear() {
  if (!focus.CellMode) {
    for (const RowNode* row : focus.SelectedRows) link.setRowSelected(row->row, false);
  }
  focus.SelectedRows.clear();
}

void RowSelection::selectOnly(RowNode* row) {
  clear();
  focus.SelectedRows.push_back(row);
  link.setRowSelected(row->row, true);
}

bool RowSelection::toggle(RowNode* row) {
  const bool selected = holds(row);
  if (selected && focus.SelectedRows.size() == 1) return false;
  if (selected) {
    focus.SelectedRows.remove(row);
  } else {
    focus.putFirst(row);
  }
  link.setRowSelected(row->row, !selected);
  return true;
}

void RowSelection::extendTo(RowNode* row) {
  RowNode* const anchor = head();
  clear();
  const bool downward = rows.isBefore(anchor, row);
  for (RowNode* node = anchor; node; node = downward ? rows.NextRow(node) : rows.PreviousRow(node)) {
    focus.SelectedRows.push_back(node);
    link.setRowSelected(node->row, true);
    if (node == row) return;
  }
}

}  // namespace tessera
