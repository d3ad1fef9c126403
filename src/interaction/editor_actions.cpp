// What keys, characters and presses that reach the grid's window do with the focus cell's editor.

#include "interaction/editor_controller.h"
#include "interaction/grid_watch.h"
#include "interaction/keys.h"
#include "interaction/page_cells.h"
#include "interaction/reading_scope.h"

namespace tessera {

// The answer may come from the data set, which may have news for the grid meanwhile: false when rows or
// columns are others then.
template <class Question>
bool EditorController::stillHolds(Question question) {
  const GridWatch watch(parts_, services_);
  bool answer = false;
  {
    const ReadingScope reading(parts_, services_);
    answer = question();
  }
  return answer && watch.holds();
}

bool EditorController::mayEdit(const ColumnRecord& column) {
  return stillHolds([&] { return column.child.isEditable(parts_.eval); });
}

bool EditorController::act(CellAction action, const ColumnRecord& column, std::int32_t row, CheckRule rule) {
  switch (action) {
    case CellAction::None:
      return false;
    case CellAction::OpenBox:
      return openEditor(true);
    case CellAction::OpenList:
      list_.open();
      return true;
    case CellAction::FirePopup:
      return firePopup(XString(column.id), row, popupByButton);
    case CellAction::FlipMark:
      flipCheck(parts_, column, row, rule);
      return true;
    case CellAction::SetMark:
      setRadio(parts_, services_, column, row);
      return true;
  }
  return false;
}

bool EditorController::actByKey(CellAction CellKindRow::*action) {
  const ColumnRecord* const column = focusColumn();
  return column && act(kindOf(*column).*action, *column, parts_.focus.FocusRow.number, checkedByKey);
}

// To ask whether a cell is editable may run the host: the cell is looked for anew.
void EditorController::enterAction() {
  if (parts_.editor.active) {
    tryCommit(CommitMode::Enter);
    return;
  }
  const ColumnRecord* const column = focusColumn();
  if (!column) return;
  if (kindOf(*column).enterAsks && !mayEdit(*column)) return;
  actByKey(&CellKindRow::enter);
}

void EditorController::escapeAction() {
  if (parts_.editor.active) tryCommit(CommitMode::Escape);
}

void EditorController::spaceAction() {
  FocusModel& focus = parts_.focus;
  if (!focus.CellMode || !focus.FocusRow || !focus.FocusColumn) return;
  parts_.eval.ExprRow = focus.FocusRow.number;
  if (!mayEdit(focus.FocusColumn->value())) return;
  const bool acted = actByKey(&CellKindRow::space);
  if (!acted && focus.FocusColumn && focus.FocusColumn->value().hasTree) toggleNode(focus.FocusRow);
}

// While the box is open characters are its own affair. A blank in a tree column has opened or closed the node
// already.
void EditorController::charArrived(char16_t character) {
  if (key::isControl(character) || parts_.editor.active) return;
  const ColumnRecord* const column = focusColumn();
  if (!column || (character == u' ' && isTreeCell(*column, parts_.config.tree))) return;
  if (!mayEdit(*column)) return;
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

bool EditorController::activateCell(std::int32_t x, std::int32_t y, ColumnPosition position, Row row) {
  if (!position || !row || !position->value().viewVisible) return false;
  const ColumnRecord& column = position->value();
  parts_.eval.ExprRow = row.number;
  const bool mayPress =
      stillHolds([&] { return column.child.isEditable(parts_.eval) && parts_.link.level(row.number) <= 0; });
  if (!mayPress || parts_.page.VisibleIndex(row) < 0) return false;
  const CellLayout layout = layoutOf(parts_, column, row);
  const FocusModel& focus = parts_.focus;
  const bool isFocus = focus.CellMode && focus.FocusRow == row && focus.FocusColumn == position;
  const bool meets = layout.mark.pressed.holds(x, y) || (isFocus && layout.button.pressed.holds(x, y));
  return meets && act(kindOf(column).press, column, row.number, checkedByMouse);
}

}  // namespace tessera
