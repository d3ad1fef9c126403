#include "control/data_notifications.h"

#include "control/refresh.h"

namespace tessera {

void DataNotifications::clearSortMarks() {
  for (ColumnRecord& column : parts_.config.columns) column.header.sortMark = 0;
}

HResult DataNotifications::SortReset(std::int32_t) {
  clearSortMarks();
  return S_OK;
}

HResult DataNotifications::StructureChanged(std::int32_t, std::int32_t) {
  parts_.link.forgetColumns();
  if (parts_.window) refresh_();
  return S_OK;
}

HResult DataNotifications::DataChanged(std::int32_t, std::int32_t) {
  if (parts_.window) refresh_();
  return S_OK;
}

HResult DataNotifications::RowsAdded(std::int32_t, std::int32_t rowCount) {
  if (!parts_.window) return S_OK;
  const bool fewer = rowCount < parts_.rows.displayCount();
  parts_.rows.setPlainCount(rowCount);
  if (fewer) refillFromTop(parts_.frame().rowCapacity());
  if (!parts_.page.VisibleRows.empty()) {
    parts_.updateBars(bar_bit::vertical);
    SetBarPositions(parts_.page, *parts_.window);
    return S_OK;
  }
  const GridFrame frame = parts_.frame();
  parts_.loader(frame).LoadVisibleRows(true);
  parts_.updateBars(bar_bit::vertical);
  services_.Repaint(nullptr);
  return S_OK;
}

HResult DataNotifications::CanChange(std::int32_t, std::int32_t, VariantBool& allowed) {
  allowed = VARIANT_TRUE;
  return S_OK;
}

HResult DataNotifications::CurrentRowChanged(std::int32_t cookie, std::int32_t row) {
  if (!listening()) return S_OK;
  const bool ownCall = cookie == ownCallCookie;
  RowNode* node = parts_.rows.find(row);
  if (!node) {
    parts_.focus.FocusRow = nullptr;
    parts_.focus.SelectedRows.clear();
    if (ownCall) {
      parts_.updateBars(bar_bit::vertical);
      services_.Repaint(nullptr);
    }
    return S_OK;
  }
  if (!endEdit(row, ownCall)) return S_OK;
  node = parts_.rows.find(row);
  if (!node || !takeCurrentRow(node, ownCall)) return S_OK;
  parts_.page.bringCurrent(parts_.rows, parts_.frame().rowCapacity(), node);
  parts_.updateBars(bar_bit::vertical);
  services_.Repaint(nullptr);
  return S_OK;
}

// A move to another row saves what is being edited. False when the host changed the grid meanwhile.
bool DataNotifications::endEdit(std::int32_t row, bool ownCall) {
  const RowNode* focusRow = parts_.focus.FocusRow;
  const bool moves = parts_.focus.CellMode && (ownCall || !focusRow || focusRow->row != row);
  if (!moves || !editors_.active()) return true;
  const GridWatch watch(parts_, services_);
  editors_.tryCommit(CommitMode::FocusLost);
  return watch.holds();
}

bool DataNotifications::takeCurrentRow(RowNode* node, bool ownCall) {
  FocusModel& focus = parts_.focus;
  if (focus.CellMode) {
    if (focus.FocusRow && focus.FocusRow->row == node->row && !ownCall) return false;
    if (focus.FocusRow && !focus.FocusColumn) return false;
    focus.FocusRow = node;
    return true;
  }
  if (!focus.SelectedRows.empty()) {
    if (focus.SelectedRows.front()->row == node->row && !ownCall) return false;
    focus.SelectedRows.erase(focus.SelectedRows.begin());
  }
  focus.putFirst(node);
  return true;
}

HResult DataNotifications::RowsReset(std::int32_t) {
  if (!listening()) return S_OK;
  // The rows have changed places already: what was typed has no row any more that it belongs to.
  editors_.abandon();
  if (!parts_.window) return S_OK;
  parts_.focus.FocusRow = nullptr;
  parts_.focus.SelectedRows.clear();
  BuildRows(parts_);
  parts_.updateBars(bar_bit::both);
  const GridFrame frame = parts_.frame();
  parts_.loader(frame).LoadVisibleRows(true);
  services_.Repaint(nullptr);
  return S_OK;
}

HResult DataNotifications::Reserved(std::int32_t, std::int32_t) { return S_OK; }

// The row's place lies in the dataset alone: the tree grows or shrinks at its end.
void DataNotifications::changeRowCount(std::int32_t row, std::int32_t delta) {
  parts_.rows.setPlainCount(addClamped(parts_.rows.displayCount(), delta));
  parts_.updateBars(bar_bit::vertical);
  if (parts_.page.TopOrdinal > row) parts_.page.TopOrdinal += delta;
}

// The page stays where it is, but for a first row that the rows have shrunk away from.
void DataNotifications::refillFromTop(std::int32_t capacity) {
  if (parts_.page.VisibleRows.empty()) return;
  RowNode* top = parts_.rows.find(parts_.page.VisibleRows.front()->row);
  if (!top) top = parts_.rows.lastDisplayable();
  if (!top) return parts_.page.clear();
  parts_.page.RefillFrom(parts_.rows, capacity, top);
}

void DataNotifications::followCurrentRow(RowNode* current) {
  const std::int32_t capacity = parts_.frame().rowCapacity();
  if (parts_.page.VisibleRows.empty() && current) parts_.page.VisibleRows.push_back(current);
  refillFromTop(capacity);
  parts_.page.EnsureRowVisible(parts_.rows, capacity, current);
}

HResult DataNotifications::RowInserted(std::int32_t, std::int32_t row) {
  if (!listening()) return S_OK;
  editors_.rowInserted(row);
  if (!parts_.window) return S_OK;
  changeRowCount(row, 1);
  FocusModel& focus = parts_.focus;
  RowNode* current = parts_.rows.find(parts_.link.currentRow());
  if (focus.CellMode) {
    focus.FocusRow = current;
  } else {
    if (!focus.SelectedRows.empty()) focus.SelectedRows.erase(focus.SelectedRows.begin());
    if (current) focus.putFirst(current);
  }
  followCurrentRow(current);
  services_.Repaint(nullptr);
  return S_OK;
}

HResult DataNotifications::RowDeleted(std::int32_t, std::int32_t row) {
  if (!listening()) return S_OK;
  editors_.rowDeleted(row);
  if (!parts_.window) return S_OK;
  const bool gone = !parts_.link.keepDeleted() || parts_.link.rowCount() != parts_.rows.displayCount();
  if (gone) {
    changeRowCount(row, -1);
    RowNode* current = parts_.rows.find(parts_.link.currentRow());
    if (!current) {
      parts_.focus.FocusRow = nullptr;
      parts_.focus.SelectedRows.clear();
      parts_.page.clear();
    } else {
      if (parts_.focus.CellMode) {
        parts_.focus.FocusRow = current;
      } else {
        const GridFrame frame = parts_.frame();
        parts_.loader(frame).rebuildSelectedRows();
      }
      followCurrentRow(current);
    }
  }
  services_.Repaint(nullptr);
  return S_OK;
}

HResult DataNotifications::CellChanged(std::int32_t, std::int32_t row, std::int32_t column) {
  if (!listening()) return S_OK;
  parts_.images.ReloadCellImage(parts_.config.columns, parts_.link, column, row);
  services_.Repaint(nullptr);
  return S_OK;
}

HResult DataNotifications::SourceClosing(std::int32_t, VariantBool flag) {
  if (flag == VARIANT_FALSE) parts_.link.releaseDataSet();
  return S_OK;
}

HResult DataNotifications::ImageSortReset(std::int32_t cookie) { return SortReset(cookie); }

HResult DataNotifications::ImageDataChanged(std::int32_t cookie, std::int32_t value) {
  return DataChanged(cookie, value);
}

// The pictures belonged to the image set.
HResult DataNotifications::ImageSourceClosing(std::int32_t) {
  parts_.link.releaseImageSet();
  parts_.images.clear();
  return S_OK;
}

}  // namespace tessera
