// Members about columns, cells, positions and editors.

#include <algorithm>
#include <vector>

#include "control/tessera.h"
#include "geometry/column_finders.h"
#include "interaction/fit_arrange.h"
#include "interaction/reading_scope.h"
#include "rows/cell_text.h"

#ifndef TESSERA_VERSION_MAJOR
#error "the build gives the version"
#endif

namespace tessera {

HResult Tessera::get_ExtProp(const XString&, XString&) { return S_OK; }
HResult Tessera::put_ExtProp(const XString&, const XString&) { return S_OK; }
HResult Tessera::Do(const XString&, const XString&) { return S_OK; }

HResult Tessera::get_Version(XString& value) {
  value.format("%d,%d,%d,%d", TESSERA_VERSION_MAJOR, TESSERA_VERSION_MINOR, TESSERA_VERSION_PATCH, 0);
  return S_OK;
}

HResult Tessera::Focus() {
  if (parts_.window) parts_.window->setFocus();
  return S_OK;
}

HResult Tessera::get_GetText(const XString& colid, std::int32_t index, std::int32_t type, XString& text) {
  const bool asksData =
      type == static_cast<std::int32_t>(TextKind::Cell) || type == static_cast<std::int32_t>(TextKind::Group);
  if (asksData && !parts_.link.dataSet()) return S_OK;
  const ReadingScope reading(parts_, *this);
  TextScratch scratch;
  const TextSource source{parts_.link, parts_.eval, scratch};
  queryText(source, parts_.config.columns, parts_.rows, colid, index, type, text);
  return S_OK;
}

HResult Tessera::get_GetEditText(XString& text) {
  text = controllers_.editors.editText();
  return S_OK;
}

HResult Tessera::ActivateEdit() {
  controllers_.editors.activateEdit();
  return S_OK;
}

HResult Tessera::Expand(std::int32_t row) {
  controllers_.rowToggle.expand(row);
  return S_OK;
}

HResult Tessera::ExpandAll() {
  controllers_.rowToggle.expandAll();
  return S_OK;
}

HResult Tessera::Collapse(std::int32_t row) {
  controllers_.rowToggle.collapse(row);
  return S_OK;
}

HResult Tessera::CollapseAll() {
  controllers_.rowToggle.collapseAll();
  return S_OK;
}

HResult Tessera::Insert(std::int32_t index, std::int32_t option, const XString& value) {
  controllers_.rowOperations.Insert(index, option, value);
  return S_OK;
}

HResult Tessera::Delete(std::int32_t index) {
  controllers_.rowOperations.Delete(index);
  return S_OK;
}

HResult Tessera::Move(std::int32_t sourceIndex, std::int32_t targetIndex, std::int32_t option) {
  controllers_.rowOperations.Move(sourceIndex, targetIndex, option);
  return S_OK;
}

HResult Tessera::FitArrange() {
  controllers_.editors.list().close(false);
  fitArrange(parts_, *this);
  return S_OK;
}

HResult Tessera::TrackPopupMenu(std::int32_t x, std::int32_t y) {
  controllers_.menu.trackPopupMenu(x, y);
  return S_OK;
}

HResult Tessera::get_RowPosition(std::int32_t& row) {
  const FocusModel& focus = parts_.focus;
  if (focus.CellMode) {
    row = focus.FocusRow ? focus.FocusRow.number : -1;
  } else if (!focus.SelectedRows.empty()) {
    row = focus.SelectedRows.front().number;
  }
  return S_OK;
}

HResult Tessera::put_RowPosition(std::int32_t row) {
  controllers_.focus.setRowPosition(row);
  return S_OK;
}

HResult Tessera::get_ColumnPosition(XString& colid) {
  const FocusModel& focus = parts_.focus;
  colid = focus.CellMode && focus.FocusColumn ? focus.FocusColumn->value().id : XString();
  return S_OK;
}

HResult Tessera::put_ColumnPosition(const XString& colid) {
  controllers_.focus.setColumnPosition(colid);
  return S_OK;
}

HResult Tessera::get_SelectedRows(XString& rows) {
  std::vector<std::int32_t> numbers;
  if (!parts_.focus.CellMode) {
    numbers = rowNumbers(parts_.focus.SelectedRows);
  } else if (parts_.focus.FocusRow) {
    numbers.push_back(parts_.focus.FocusRow.number);
  }
  rows.clear();
  XString number;
  for (std::int32_t row : numbers) {
    number.format(rows.empty() ? "%d" : ",%d", row);
    rows += number;
  }
  return S_OK;
}

HResult Tessera::get_GetRefColumnID(const XString& colid, XString& name) {
  if (ColumnPosition column = columnById(parts_.config.columns, colid)) name = column->value().refColumnId;
  return S_OK;
}

HResult Tessera::get_GetColumnID(std::int32_t index, XString& colid) {
  const ColumnList& columns = parts_.config.columns;
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [index](const ColumnRecord& column) { return column.index == index; });
  if (found != columns.end()) colid = found->id;
  return S_OK;
}

HResult Tessera::get_CountColumn(std::int32_t type, std::int32_t& count) {
  count = 0;
  for (const ColumnRecord& column : parts_.config.columns) {
    const bool counts = type == 1 || (type == 2 && column.viewVisible) || (type == 3 && column.index >= 0);
    count += counts ? 1 : 0;
  }
  return S_OK;
}

HResult Tessera::UpdateImageSet(const XString& refColID, std::int32_t startRow, std::int32_t endRow) {
  if (!parts_.link.dataSet()) return S_OK;
  const std::int32_t column = parts_.link.columnIndex(refColID);
  const std::int32_t end = std::min(endRow, addClamped(parts_.link.rowCount(), 1));
  for (std::int32_t row = std::max(startRow, 1); row < end; ++row) {
    parts_.images.ReloadCellImage(parts_.config.columns, parts_.link, column, row);
  }
  Repaint(nullptr);
  return S_OK;
}

}  // namespace tessera
