// What keys, characters and presses that reach the grid's window do with the focus cell's editor.

#include "geometry/hit_test.h"
#include "interaction/cell_buttons.h"
#include "interaction/check_cells.h"
#include "interaction/editor_controller.h"
#include "interaction/grid_watch.h"
#include "interaction/keys.h"
#include "interaction/reading_scope.h"

namespace tessera {

// The answer may come from the data set, which may have news for the grid meanwhile: false when rows or
// columns are others then.
bool EditorController::mayEdit(const ColumnRecord& column) {
  const GridWatch watch(parts_, services_);
  bool isEditable = false;
  {
    const ReadingScope reading(parts_, services_);
    isEditable = column.child.isEditable(parts_.eval);
  }
  return isEditable && watch.holdsRows();
}

void EditorController::enterAction() {
  if (parts_.editor.active) {
    tryCommit(CommitMode::Enter);
    return;
  }
  const ColumnRecord* const column = focusColumn();
  if (!column) return;
  switch (column->child.type) {
    case CellKind::Edit:
      if (mayEdit(*column)) openEditor(true);
      return;
    case CellKind::Combo:
    case CellKind::Lookup:
      list_.open();
      return;
    case CellKind::Check:
      if (mayEdit(*column)) toggleCheckByKey();
      return;
    case CellKind::Radio:
      setRadioByKey();
      return;
    case CellKind::None:
    case CellKind::Image:
    case CellKind::Bar:
      return;
  }
}

void EditorController::escapeAction() {
  if (parts_.editor.active) tryCommit(CommitMode::Escape);
}

void EditorController::spaceAction() {
  FocusModel& focus = parts_.focus;
  if (!focus.CellMode || !focus.FocusRow || !focus.FocusColumn) return;
  parts_.eval.ExprRow = focus.FocusRow->row;
  if (!mayEdit(focus.FocusColumn->value())) return;
  if (!toggleCheckByKey()) toggleNode(*focus.FocusRow);
}

// What reaches the grid while its box is open is meant for the box. A blank in a tree column has opened or
// closed the node already.
void EditorController::charArrived(char16_t character) {
  if (key::isControl(character)) return;
  if (parts_.editor.active) return parts_.editor.box->sendChar(character);
  const ColumnRecord* const column = focusColumn();
  if (!column || !mayEdit(*column)) return;
  if (character == u' ' && column->hasTree && parts_.config.tree.rowMode != RowMode::Plain) return;
  if (!openEditor(false) || !parts_.editor.active) return;
  parts_.editor.box->sendChar(character);
  services_.Repaint(nullptr);
}

void EditorController::imeStarted() {
  if (parts_.editor.active || !openEditor(false) || !parts_.editor.active) return;
  parts_.editor.box->sendComposition();
  services_.Repaint(nullptr);
}

void EditorController::imeComposing() {
  if (parts_.editor.active) parts_.editor.box->sendComposition();
}

void EditorController::activateEdit() {
  if (!parts_.window || parts_.editor.active || !openEditor(false)) return;
  services_.Repaint(nullptr);
}

XString EditorController::editText() const {
  const EditorModel& editor = parts_.editor;
  return editor.active && editor.box ? editor.box->text() : XString();
}

bool EditorController::toggleCheckByKey() {
  const ColumnRecord* const column = focusColumn();
  if (!column || column->child.type != CellKind::Check) return false;
  flipCheck(parts_, *column, parts_.focus.FocusRow->row, checkedByKey);
  return true;
}

bool EditorController::setRadioByKey() {
  const ColumnRecord* const column = focusColumn();
  if (!column || column->child.type != CellKind::Radio) return false;
  setRadio(parts_, services_, *column, parts_.focus.FocusRow->row);
  return true;
}

bool EditorController::activateCell(std::int32_t x, std::int32_t y, ColumnPosition position, RowNode* row) {
  if (!position || !row || !position->value().viewVisible) return false;
  const ColumnRecord& column = position->value();
  parts_.eval.ExprRow = row->row;
  if (!mayEdit(column) || parts_.link.level(row->row) > 0) return false;
  const std::int32_t index = parts_.page.VisibleIndex(row);
  if (index < 0) return false;
  const Rect cell = cellRect(parts_.frame(), column, index);
  if (markRect(column, cell).holds(x, y)) return pressMark(column, *row);
  const FocusModel& focus = parts_.focus;
  const bool isFocus = focus.CellMode && focus.FocusRow == row && focus.FocusColumn == position;
  return isFocus && buttonRect(column, cell).holds(x, y) && pressPopup(column, *row);
}

bool EditorController::pressPopup(const ColumnRecord& column, RowNode& row) {
  if (column.child.type == CellKind::Edit) return firePopup(XString(column.id), row.row, popupByButton);
  list_.open();
  return true;
}

bool EditorController::pressMark(const ColumnRecord& column, RowNode& row) {
  if (column.child.type == CellKind::Check) {
    flipCheck(parts_, column, row.row, checkedByMouse);
  } else {
    setRadio(parts_, services_, column, row.row);
  }
  return true;
}

}  // namespace tessera
