#include "interaction/focus_controller.h"

#include "geometry/column_finders.h"
#include "interaction/fire_event.h"
#include "interaction/focused_child.h"
#include "interaction/ime_mode.h"

namespace tessera {
namespace {

const XString noColumn;

const XString& idOf(ColumnPosition column) { return column ? column->value().id : noColumn; }

ColumnPosition visibleColumn(ColumnList& columns, const XString& id) {
  return firstColumn(columns,
                     [&](const ColumnRecord& column) { return column.viewVisible && column.id == id; });
}

}  // namespace

Cell FocusController::focusCell() const {
  const FocusModel& focus = parts_.focus;
  if (!focus.CellMode) return {};
  return {focus.FocusRow, focus.FocusColumn, parts_.focus.CurrentLine};
}

void FocusController::applyImeMode() { tessera::applyImeMode(parts_); }

void FocusController::syncCurrentRow() {
  if (const Row row = parts_.focus.currentRow()) parts_.link.syncCurrentRow(row.number);
}

// Moving the columns moves the cell, wherever the scrolling itself thinks the focus is.
void FocusController::followColumn() {
  FocusModel& focus = parts_.focus;
  if (focus.FocusColumn) focus.FocusLeft = focus.FocusColumn->value().view.rect.left;
}

std::int32_t FocusController::scrollFullyLeft() {
  const GridFrame frame = parts_.frame();
  ColumnScroll scroll{parts_.config.columns, parts_.page, parts_.focus, frame};
  std::int32_t moved = 0;
  while (const std::int32_t step = scroll.StepLeft()) moved = addClamped(moved, step);
  followColumn();
  return moved;
}

std::int32_t FocusController::scrollFullyRight() {
  const GridFrame frame = parts_.frame();
  ColumnScroll scroll{parts_.config.columns, parts_.page, parts_.focus, frame};
  std::int32_t moved = 0;
  while (const std::int32_t step = scroll.StepRight()) moved = subClamped(moved, step);
  followColumn();
  return moved;
}

void FocusController::scrollBack(std::int32_t dx, std::int32_t stop) {
  shiftScrolledColumns(parts_.config.columns, subClamped(0, dx));
  parts_.page.ColumnStop = stop;
  followColumn();
}

void FocusController::scrollPage(std::int32_t rows) {
  const std::int32_t capacity = parts_.frame().rowCapacity();
  if (rows > 0) parts_.page.RowsDown(parts_.rows, capacity, rows);
  if (rows < 0) parts_.page.RowsUp(parts_.rows, capacity, -rows);
}

void FocusController::showRow(Row row, bool onTop) {
  const std::int32_t capacity = parts_.frame().rowCapacity();
  if (!onTop) return parts_.page.EnsureRowVisible(parts_.rows, capacity, row);
  if (parts_.page.VisibleAt(0) != row) parts_.page.RefillFrom(parts_.rows, capacity, row);
}

void FocusController::showColumn(ColumnPosition column) {
  const GridFrame frame = parts_.frame();
  ColumnScroll{parts_.config.columns, parts_.page, parts_.focus, frame}.EnsureColumnVisible(column->value());
  followColumn();
}

// The row of the focus cell changes its flag only when it changes.
bool FocusController::markFocusRow(Row row) {
  return parts_.focus.FocusRow == row || selection().markOnly(row);
}

void FocusController::storeFocus(const Cell& cell) {
  FocusModel& focus = parts_.focus;
  focus.FocusRow = cell.row;
  focus.FocusColumn = cell.column;
  parts_.focus.CurrentLine = cell.line;
  followColumn();
}

std::optional<MoveResult> FocusController::refusal(const XString& colid, std::int32_t row) {
  const GridWatch watch(parts_, services_);
  const auto whatStays = [&]() -> std::optional<MoveResult> {
    const bool ended = editors_.commitBeforeMove();
    if (!watch.holds()) return MoveResult::Gone;
    return ended ? std::nullopt : std::optional(MoveResult::EditorStays);
  };
  if (const auto stays = whatStays()) return stays;
  if (fire<EventId::OnSelChange>(parts_, services_, colid, row).refuses()) return MoveResult::Vetoed;
  return whatStays();
}

// `store` changes flags and focus and shows the target; false when the grid is another one meanwhile.
template <class Store>
MoveResult FocusController::move(const XString& colid, Row row, Store store) {
  const GridWatch watch(parts_, services_);
  if (const auto refused = refusal(colid, row.number)) return *refused;
  if (!store()) return MoveResult::Gone;
  syncCurrentRow();
  if (!watch.holds()) return MoveResult::Gone;
  fire<EventId::OnSelChanged>(parts_, services_, colid, row).last();
  return MoveResult::Moved;
}

MoveResult FocusController::moveTo(const Cell& target, const MoveStyle& style) {
  return move(XString(target.column->value().id), target.row, [&] {
    if (!parts_.focus.CellMode) return false;
    scrollPage(style.scrollRows);
    if (!markFocusRow(target.row)) return false;
    storeFocus(target);
    if (style.showCell) {
      showColumn(target.column);
      showRow(target.row, style.onTop);
    }
    if (style.setInput) applyImeMode();
    return true;
  });
}

MoveResult FocusController::selectRow(Row target, const MoveStyle& style) {
  return move(noColumn, target, [&] {
    if (parts_.focus.CellMode) return false;
    scrollPage(style.scrollRows);
    if (!selection().selectOnly(target)) return false;
    showRow(target, style.onTop);
    return true;
  });
}

// The focus column, which need not be there, stays.
MoveResult FocusController::focusRow(Row target) {
  return move(XString(idOf(parts_.focus.FocusColumn)), target, [&] {
    if (!parts_.focus.CellMode || !markFocusRow(target)) return false;
    parts_.focus.FocusRow = target;
    showRow(target, false);
    return true;
  });
}

// In the mode that goes with it: cell mode with a column, row mode without.
MoveResult FocusController::takeColumn(ColumnPosition column, Row row) {
  return move(XString(idOf(column)), row, [&] {
    if (!selection().markOnly(row)) return false;
    parts_.focus.SelectedRows.clear();
    parts_.focus.FocusRow = row;
    if (column) {
      toCellMode(column);
    } else {
      toRowMode();
    }
    return true;
  });
}

void FocusController::setRowPosition(std::int32_t row) {
  if (!parts_.link.dataSet() || row < 1 || row > parts_.link.rowCount()) return;
  const Row target = parts_.rows.find(row);
  const Row present = parts_.focus.currentRow();
  if (!target || !present || present == target) return;
  const MoveResult result = parts_.focus.CellMode ? focusRow(target) : selectRow(target);
  if (result == MoveResult::Moved) services_.Repaint(nullptr);
}

// The empty id leads to row mode.
void FocusController::setColumnPosition(const XString& id) {
  if (!parts_.link.dataSet()) return;
  const FocusModel& focus = parts_.focus;
  const Row row = focus.currentRow();
  const ColumnPosition column = id.empty() ? nullptr : visibleColumn(parts_.config.columns, id);
  if (!row || (id.empty() ? !focus.CellMode : !column)) return;
  if (takeColumn(column, row) == MoveResult::Moved) services_.Repaint(nullptr);
}

void FocusController::toCellMode(ColumnPosition column) {
  parts_.focus.CellMode = true;
  storeFocus({parts_.focus.FocusRow, column, parts_.metrics.lineAt(column->value().view.rect.top)});
  showColumn(column);
  showRow(parts_.focus.FocusRow, false);
  applyImeMode();
}

void FocusController::toRowMode() {
  FocusModel& focus = parts_.focus;
  focus.CellMode = false;
  focus.FocusColumn = nullptr;
  focus.SelectedRows.assign(focus.FocusRow);
}

// In the indicator, a row that sums others counts as its own region.
void FocusController::pressRow(const Hit& hit, Point at, Modifiers modifiers) {
  const Row row = hit.dataRow();
  if (!row) return;
  if (hit.region == Region::Indicator || at.x <= parts_.frame().indicatorWidth) {
    pressIndicator(row, modifiers);
  } else {
    pressCell(row, hit.column);
  }
}

// A selection of several rows that is pressed may be about to be dragged.
void FocusController::pressIndicator(Row row, Modifiers modifiers) {
  const GridWatch watch(parts_, services_);
  RowSelection rows = selection();
  const bool inRowMode = !parts_.focus.CellMode;
  const bool drags = (parts_.settings.DragDrop & drag_drop::rows) != 0;
  if (drags && inRowMode && parts_.focus.SelectedRows.size() >= 2 && rows.holds(row)) return;
  const bool extends = modifiers.shift && inRowMode && rows.head();
  const bool changed = modifiers.control ? rows.toggle(row)
                       : extends         ? rows.extendTo(row)
                                         : rows.selectOnly(row);
  if (!changed || !watch.holds()) return;
  showRow(rows.head(), false);
  syncCurrentRow();
}

// A press between the cells of a row keeps the column; coming from row mode there is none to keep.
void FocusController::pressCell(Row row, ColumnPosition column) {
  const GridWatch watch(parts_, services_);
  FocusModel& focus = parts_.focus;
  if (!selection().markOnly(row)) return;
  focus.SelectedRows.clear();
  focus.CellMode = true;
  const CellSteps steps(parts_.config.columns, parts_.metrics, parts_.rows);
  Cell cell{row, focus.FocusColumn, parts_.focus.CurrentLine};
  if (!column && !cell.column) column = steps.home(0);
  if (column) cell = {row, column, parts_.metrics.lineAt(column->value().view.rect.top)};
  storeFocus(cell);
  syncCurrentRow();
  if (!watch.holds() || !focus.FocusColumn) return;
  showColumn(focus.FocusColumn);
  showRow(focus.FocusRow, false);
  applyImeMode();
}

// The state changes before the event: a listener that opens an editor at once finds the focus in the grid.
void FocusController::focusGained() {
  FocusModel& focus = parts_.focus;
  const bool fromOutside = focus.state == FocusState::Outside;
  focus.state = FocusState::Grid;
  if (fromOutside) fire<EventId::OnSetFocus>(parts_, services_).last();
  if (focus.state == FocusState::Grid) applyImeMode();
  services_.Repaint(nullptr);
}

// A press into the open box or list moves the focus within the control.
void FocusController::focusLost() {
  FocusModel& focus = parts_.focus;
  if (focus.state == FocusState::Grid) {
    focus.state = focusedChild(parts_);
    if (focus.state == FocusState::Outside) fire<EventId::OnKillFocus>(parts_, services_).last();
  }
  services_.Repaint(nullptr);
}

}  // namespace tessera
