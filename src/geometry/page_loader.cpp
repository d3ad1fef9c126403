#include "geometry/page_loader.h"

#include "geometry/column_finders.h"

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
  return firstColumn(columns, [&](const ColumnRecord& column) {
    return column.viewVisible && column.refColumnId == focus.FocusColumnName;
  });
}

ColumnPosition PageLoader::leftmostOfFirstLine() const {
  if (metrics.LineTops.empty()) return nullptr;
  return leftmostColumn(columns, [line = metrics.LineTops.front()](const ColumnRecord& column) {
    return column.view.rect.top <= line && column.view.rect.bottom > line;
  });
}

}  // namespace tessera
