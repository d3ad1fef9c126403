#include "control/data_notifications.h"

#include "control/refresh.h"
#include "interaction/reading_scope.h"
#include "interaction/row_numbers.h"

namespace tessera {

// While the grid is being read, a refresh afterwards stands for all that came.
bool DataNotifications::mayChange() {
  if (parts_.window && parts_.readings > 0) parts_.refreshDue = true;
  return parts_.window && parts_.readings == 0;
}

bool DataNotifications::listening(std::uint64_t& echoes) {
  if (parts_.link.SelfMove()) ++echoes;
  return listening();
}

void DataNotifications::clearSortMarks() {
  for (ColumnRecord& column : parts_.config.columns) column.header.sortMark = 0;
}

HResult DataNotifications::SortReset(std::int32_t) {
  clearSortMarks();
  return S_OK;
}

HResult DataNotifications::StructureChanged(std::int32_t, std::int32_t) {
  parts_.link.forgetColumns();
  return DataChanged(0, 0);
}

// What was typed has no row any more that it belongs to.
HResult DataNotifications::DataChanged(std::int32_t, std::int32_t) {
  if (!mayChange()) return S_OK;
  editors_.forgetRows();
  if (parts_.window) refresh_();
  return S_OK;
}

HResult DataNotifications::RowsAdded(std::int32_t, std::int32_t rowCount) {
  if (!mayChange()) return S_OK;
  switch (parts_.config.tree.rowMode) {
    case RowMode::Plain:
      addPlainRows(rowCount);
      break;
    case RowMode::Tree:
      addTreeRows(rowCount);
      break;
    case RowMode::Group:
      parts_.rowsStale = true;
      break;
  }
  return S_OK;
}

void DataNotifications::addPlainRows(std::int32_t rowCount) {
  const bool fewer = rowCount < parts_.rows.rowCount();
  parts_.rows.setPlainCount(rowCount);
  if (fewer) cutRows(rowCount);
  if (!parts_.window) return;
  if (parts_.page.VisibleRows.empty()) return loadPage();
  showCount();
  if (fewer) services_.Repaint(nullptr);
}

// The page stays as it is: what came stands behind it.
void DataNotifications::addTreeRows(std::int32_t rowCount) {
  const ReadingScope reading(parts_, services_);
  if (parts_.rows.isPlain() || parts_.rows.rowCount() == 0) {
    BuildRows(parts_, services_);
    return loadPage();
  }
  const auto error = parts_.rowBuilder().continueTree(rowCount);
  showCount();
  if (error) services_.ReportError(*error);
}

void DataNotifications::showCount() {
  parts_.updateBars(bar_bit::vertical);
  if (parts_.window) SetBarPositions(parts_.page, *parts_.window);
}

void DataNotifications::loadPage() {
  const ReadingScope reading(parts_, services_);
  const GridFrame frame = parts_.frame();
  parts_.loader(frame).LoadVisibleRows(true);
  parts_.updateBars(bar_bit::vertical);
  services_.Repaint(nullptr);
}

// What stood on the rows behind the end goes to the last row that is left.
void DataNotifications::cutRows(std::int32_t count) {
  const bool stood = static_cast<bool>(parts_.focus.currentRow());
  renumberRows(parts_, editors_, RowsChanged::cutTo(count));
  if (stood && !parts_.focus.currentRow()) selection().follow(parts_.rows.lastDisplayable());
  if (parts_.window) refillFromTop(parts_.frame().rowCapacity());
}

HResult DataNotifications::CanChange(std::int32_t, std::int32_t, VariantBool& allowed) {
  allowed = VARIANT_TRUE;
  return S_OK;
}

HResult DataNotifications::CurrentRowChanged(std::int32_t cookie, std::int32_t row) {
  if (!listening()) return S_OK;
  const bool ownCall = cookie == ownCallCookie;
  if (!endEdit(row, ownCall)) return S_OK;
  const Row current = parts_.rows.find(row);
  if (!current) {
    if (!selection().follow(noRow) || !ownCall) return S_OK;
  } else {
    const std::int32_t shown = parts_.rows.displayCount();
    parts_.rows.expandAncestors(current);
    if (!takeCurrentRow(current, ownCall)) {
      if (parts_.window && parts_.rows.displayCount() != shown) showOpened();
      return S_OK;
    }
    parts_.page.bringCurrent(parts_.rows, parts_.frame().rowCapacity(), current);
    needColumn();
  }
  parts_.updateBars(bar_bit::vertical);
  services_.Repaint(nullptr);
  return S_OK;
}

// The focus stood in a closed row already.
void DataNotifications::showOpened() {
  refillFromTop(parts_.frame().rowCapacity());
  parts_.updateBars(bar_bit::vertical);
  services_.Repaint(nullptr);
}

// A move to another row saves what is being edited. False when the host changed the grid meanwhile.
bool DataNotifications::endEdit(std::int32_t row, bool ownCall) {
  const bool moves = parts_.focus.CellMode && (ownCall || parts_.focus.FocusRow != Row{row});
  if (!moves || !editors_.active()) return true;
  const GridWatch watch(parts_, services_);
  editors_.tryCommit(CommitMode::FocusLost);
  return watch.holds();
}

// False when the focus stands there already or has no column to stand in, or when the grid went.
bool DataNotifications::takeCurrentRow(Row row, bool ownCall) {
  const FocusModel& focus = parts_.focus;
  if (focus.CellMode) {
    if (focus.FocusRow == row && !ownCall) return false;
    if (focus.FocusRow && !focus.FocusColumn) return false;
  } else if (selection().head() == row && !ownCall) {
    return false;
  }
  return selection().follow(row);
}

// A focus row without a column would leave the keyboard without a cell.
void DataNotifications::needColumn() {
  const FocusModel& focus = parts_.focus;
  if (!focus.CellMode || !focus.FocusRow || focus.FocusColumn) return;
  const GridFrame frame = parts_.frame();
  parts_.loader(frame).takeColumn(true);
}

HResult DataNotifications::RowsReset(std::int32_t) {
  if (!listening(parts_.echoes.reset)) return S_OK;
  editors_.forgetRows();
  if (!parts_.window) return S_OK;
  const ReadingScope reading(parts_, services_);
  BuildRows(parts_, services_);
  parts_.updateBars(bar_bit::both);
  const GridFrame frame = parts_.frame();
  parts_.loader(frame).LoadVisibleRows(true);
  services_.Repaint(nullptr);
  return S_OK;
}

HResult DataNotifications::Reserved(std::int32_t, std::int32_t) { return S_OK; }

// The row's place lies in the dataset alone: a plain tree grows or shrinks at its end. What is open and what
// is selected goes on under the rows' new numbers.
void DataNotifications::changeRowCount(std::int32_t row, std::int32_t delta) {
  const bool isAppended = delta > 0 && row > parts_.rows.rowCount();
  parts_.rows.setPlainCount(addClamped(parts_.rows.rowCount(), delta));
  parts_.updateBars(bar_bit::vertical);
  if (parts_.page.TopOrdinal > row) parts_.page.TopOrdinal += delta;
  if (isAppended) return;
  renumberRows(parts_, editors_, delta > 0 ? RowsChanged::inserted(row) : RowsChanged::deleted(row));
}

// The page stays where it is, but for a first row that the rows have shrunk away from.
void DataNotifications::refillFromTop(std::int32_t capacity) {
  if (parts_.page.VisibleRows.empty()) return;
  Row top = parts_.rows.find(parts_.page.VisibleRows.front().number);
  if (!top) top = parts_.rows.lastDisplayable();
  if (!top) return parts_.page.clear();
  parts_.page.RefillFrom(parts_.rows, capacity, top);
}

// One change of the data set may come in several notifications. Up to the last of them the row numbers of the
// two sides differ, and nothing may be written or marked by them: false.
bool DataNotifications::settleRows() {
  const auto agrees = [this] { return parts_.window && parts_.link.rowCount() == parts_.rows.rowCount(); };
  if (parts_.window) refillFromTop(parts_.frame().rowCapacity());
  if (!agrees()) return false;
  editors_.tryCommit(CommitMode::FocusLost);
  return agrees();
}

void DataNotifications::followCurrentRow() {
  const Row current = parts_.rows.find(parts_.link.currentRow());
  if (!selection().follow(current) || !current) return;
  const std::int32_t capacity = parts_.frame().rowCapacity();
  if (parts_.page.VisibleRows.empty()) parts_.page.VisibleRows.push_back(current);
  refillFromTop(capacity);
  parts_.page.EnsureRowVisible(parts_.rows, capacity, current);
  needColumn();
}

HResult DataNotifications::RowInserted(std::int32_t, std::int32_t row) {
  if (!listening(parts_.echoes.inserted)) return S_OK;
  parts_.rowsStale = !isPlain();
  if (isPlain()) {
    changeRowCount(row, 1);
    if (settleRows()) followCurrentRow();
  }
  services_.Repaint(nullptr);
  return S_OK;
}

// A row that is kept changes nothing but its look. In row mode the data set's flags tell what is selected.
HResult DataNotifications::RowDeleted(std::int32_t, std::int32_t row) {
  if (!listening(parts_.echoes.deleted)) return S_OK;
  parts_.rowsStale = !isPlain();
  const bool gone =
      isPlain() && (!parts_.link.keepDeleted() || parts_.link.rowCount() != parts_.rows.rowCount());
  if (gone) changeRowCount(row, -1);
  if (gone && settleRows()) {
    const GridFrame frame = parts_.frame();
    if (!parts_.focus.CellMode) parts_.loader(frame).rebuildSelectedRows();
    followCurrentRow();
    if (!parts_.rows.find(parts_.link.currentRow())) parts_.page.clear();
  }
  services_.Repaint(nullptr);
  return S_OK;
}

HResult DataNotifications::CellChanged(std::int32_t, std::int32_t row, std::int32_t column) {
  if (!listening()) return S_OK;
  const TreeInfo& tree = parts_.config.tree;
  if (tree.rowMode == RowMode::Tree && column == parts_.link.columnIndex(tree.levelColumn)) {
    parts_.rowsStale = true;
  }
  parts_.images.ReloadCellImage(parts_.config.columns, parts_.link, column, row);
  services_.Repaint(nullptr);
  return S_OK;
}

HResult DataNotifications::SourceClosing(std::int32_t, VariantBool flag) {
  if (flag == VARIANT_FALSE) parts_.link.releaseDataSet();
  return S_OK;
}

HResult DataNotifications::ImageSortReset(std::int32_t cookie) { return SortReset(cookie); }

// The rows are the same: what was typed is saved, or goes on being edited over the new pictures.
HResult DataNotifications::ImageDataChanged(std::int32_t, std::int32_t) {
  if (!mayChange()) return S_OK;
  editors_.settle();
  if (!parts_.window) return S_OK;
  if (!editors_.active()) {
    refresh_();
    return S_OK;
  }
  parts_.images.ReloadImages(parts_.link);
  services_.Repaint(nullptr);
  return S_OK;
}

// The pictures belonged to the image set.
HResult DataNotifications::ImageSourceClosing(std::int32_t) {
  parts_.link.releaseImageSet();
  parts_.images.clear();
  return S_OK;
}

}  // namespace tessera
