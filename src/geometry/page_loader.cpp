#include "geometry/page_loader.h"

namespace tessera {

void PageLoader::LoadVisibleRows(bool keepColumn) {
  page.clear();
  focus.FocusRow = noRow;
  focus.SelectedRows.clear();
  if (!link.dataSet() || link.rowCount() < 1 || columns.empty()) return;
  const std::int32_t current = link.currentRow();
  const Row start = rows.find(current == 0 ? 1 : current);
  if (!start) {
    if (!rows.isPlain()) page.RefillFrom(rows, frame.rowCapacity(), rows.first());
    return;
  }
  rows.expandAncestors(start);
  page.fillAround(rows, frame.rowCapacity(), start);
  if (!focus.CellMode) {
    rebuildSelectedRows();
    page.EnsureRowVisible(rows, frame.rowCapacity(), start);
    return;
  }
  focus.FocusRow = start;
  takeColumn(keepColumn);
}

void PageLoader::takeColumn(bool keepColumn) {
  ColumnPosition column = nullptr;
  if (keepColumn || !focus.FocusColumnName.empty()) column = namedColumn();
  if (!column) {
    focus.CurrentLine = 0;
    column = leftmostOfFirstLine();
  }
  if (column) focusOn(column);
}

void PageLoader::rebuildSelectedRows() {
  focus.SelectedRows.clear();
  const std::int32_t count = link.rowCount();
  for (std::int32_t before = 0; before < count; ++before) {
    const std::int32_t row = before + 1;
    if (!link.rowSelected(row)) continue;
    if (const Row found = rows.find(row)) focus.SelectedRows.append(found);
  }
  if (const Row current = rows.find(link.currentRow())) focus.SelectedRows.putFirst(current);
}

void PageLoader::focusOn(ColumnPosition column) {
  focus.FocusColumn = column;
  focus.followColumn();
  focus.CurrentLine = metrics.lineAt(column->value().view.rect.top);
  ColumnScroll{columns, page, focus, frame}.EnsureColumnVisible(column->value());
  page.EnsureRowVisible(rows, frame.rowCapacity(), focus.FocusRow);
}

// An empty name names no column, not the first unbound one.
ColumnPosition PageLoader::namedColumn() const {
  if (focus.FocusColumnName.empty()) return nullptr;
  for (auto it = columns.begin(); it != columns.end(); ++it) {
    if (it->viewVisible && it->refColumnId == focus.FocusColumnName) return it.position();
  }
  return nullptr;
}

// A column further left takes the place of one that was found before it, also when it stands on another line
// itself: it moves the limit for all that follow.
ColumnPosition PageLoader::leftmostOfFirstLine() const {
  if (metrics.LineTops.empty()) return nullptr;
  const std::int32_t line = metrics.LineTops.front();
  std::int32_t smallestLeft = 65536;
  ColumnPosition found = nullptr;
  for (auto it = columns.begin(); it != columns.end(); ++it) {
    const Rect& view = it->view.rect;
    if (!it->viewVisible || view.left > smallestLeft) continue;
    smallestLeft = view.left;
    if (view.top <= line && view.bottom > line) found = it.position();
  }
  return found;
}

}  // namespace tessera
