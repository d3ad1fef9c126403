#include "interaction/editor_controller.h"

#include <algorithm>
#include <array>

#include "geometry/hit_test.h"
#include "interaction/cell_buttons.h"
#include "interaction/check_cells.h"
#include "interaction/edit_outcome.h"
#include "interaction/key_events.h"

namespace tessera {
namespace {

constexpr std::int32_t buttonFlag = 1, enterFlag = 0;  // what an OnPopup came from

// Keys that the grid takes although the box has the focus.
constexpr std::array handedUp = {key::enter,  key::escape,   key::up,     key::down,
                                 key::pageUp, key::pageDown, key::tabDone};

bool isControlCharacter(char16_t character) { return character < key::space || character == 127; }

}  // namespace

void EditorController::windowCreated() {
  parts_.editor.box = parts_.window->createEditBox(*this);
  if (EditBox* box = parts_.editor.box.get()) box->place(parkedEditor);
  list_.windowCreated();
}

void EditorController::windowDestroyed() {
  if (parts_.editor.active) close({.refocus = true, .save = true, .popup = false});
  parts_.editor.active = false;
  parts_.editor.box.reset();
  list_.windowDestroyed();
  parts_.focus.state = FocusState::Outside;
}

void EditorController::place(const PaintResult& result) {
  EditBox* const box = parts_.editor.box.get();
  if (!parts_.editor.active || !box) return;
  if (result.editorPlace) {
    if (box->placement() != *result.editorPlace) box->place(*result.editorPlace);
  } else if (result.parkEditor) {
    box->place(parkedEditor);
  }
}

ColumnRecord* EditorController::focusColumn() {
  const FocusModel& focus = parts_.focus;
  if (!parts_.window || !parts_.link.dataSet()) return nullptr;
  if (!focus.CellMode || !focus.FocusRow || !focus.FocusColumn) return nullptr;
  if (parts_.link.level(focus.FocusRow->row) > 0) return nullptr;
  parts_.eval.ExprRow = focus.FocusRow->row;
  return &focus.FocusColumn->value();
}

void EditorController::focusGridIfOutside() {
  if (parts_.window && parts_.focus.state == FocusState::Outside) parts_.window->setFocus();
}

bool EditorController::firePopup(const XString& colid, std::int32_t row, std::int32_t flag) {
  const std::array arguments = {XValue::ofText(colid), XValue::ofInt(row), XValue::ofInt(flag)};
  services_.fire(EventId::OnPopup, arguments);
  focusGridIfOutside();
  return true;
}

bool EditorController::openEditor(bool withPopup) {
  const ColumnRecord* const column = focusColumn();
  if (!column || parts_.editor.active || column->child.type != CellKind::Edit) return false;
  const std::int32_t row = parts_.focus.FocusRow->row;
  const XString colid = column->id;
  if (column->child.subType == EditKind::PopupFix) {
    return !withPopup || firePopup(colid, row, enterFlag);
  }
  if (!parts_.editor.box) return false;
  const GridWatch watch(parts_, services_);
  cell_ = {colid, row, parts_.focus.FocusColumn, services_.generation()};
  fillBox(*column, row);
  parts_.editor.active = true;
  if (!focusBox(watch)) return false;
  const std::array arguments = {XValue::ofText(colid), XValue::ofInt(row)};
  services_.fire(EventId::OnEnter, arguments);
  return parts_.editor.active;
}

EditRules EditorController::takeRules(const ColumnRecord& column, std::int32_t dataColumn,
                                      bool& numeric) const {
  const ChildSpec& child = column.child;
  const auto dataSet = parts_.link.holdDataSet();
  std::int32_t type = columnText;
  std::int32_t length = 0;
  dataSet->GetColumnType(dataColumn, type);
  dataSet->GetColumnLength(dataColumn, length);
  const bool whole = type == columnInteger || type == columnLong;
  numeric = (child.inputType & input_type::numeric) != 0 || whole || type == columnDecimal;
  EditRules rules{child.inputType, length, child.decimal};
  if (whole) rules.decimals = 0;
  if (type == columnDecimal) {
    std::int32_t scale = 0;
    dataSet->GetColumnScale(dataColumn, scale);
    if (child.decimal < 0 || child.decimal > scale) rules.decimals = scale;
  }
  if (child.limitLength >= 0 && child.limitLength <= length) rules.limit = child.limitLength;
  return rules;
}

void EditorController::fillBox(const ColumnRecord& column, std::int32_t row) {
  const ChildSpec& child = column.child;
  const std::int32_t dataColumn = parts_.link.columnIndex(column.refColumnId);
  EditorModel& editor = parts_.editor;
  parts_.link.text(row, dataColumn, editor.oldText);
  bool numeric = false;
  const EditRules rules = takeRules(column, dataColumn, numeric);
  editor.inputType = rules.inputType;
  editor.limit = rules.limit;
  editor.decimals = rules.decimals;
  EditBox& box = *editor.box;
  const bool lower = (child.inputType & input_type::lower) != 0;
  box.setLetterCase((child.inputType & input_type::upper) != 0 ? LetterCase::Upper
                    : lower                                    ? LetterCase::Lower
                                                               : LetterCase::AsTyped);
  box.setPassword((child.inputType & input_type::password) != 0);
  const XString text = fittingText(editor.oldText, numeric, rules);
  box.setText(text);
  parts_.eval.ExprRow = row;
  box.setFont(column.view.effectiveFont(parts_.eval));
  box.select(child.select ? 0 : text.length(), child.select ? -1 : text.length());
}

// The grid's window first: the control gets the focus as a whole before one of its children has it.
bool EditorController::focusBox(const GridWatch& watch) {
  focusGridIfOutside();
  if (watch.holds() && parts_.editor.active && parts_.focus.state != FocusState::Editor) {
    parts_.focus.state = FocusState::Editor;
    parts_.editor.box->setFocus();
  }
  if (watch.holds()) return parts_.editor.active;
  abandon();
  return false;
}

std::int32_t EditorController::askExit() {
  constexpr std::int32_t noAnswer = 2;
  const std::array arguments = {XValue::ofText(cell_.colid), XValue::ofInt(cell_.row),
                                XValue::ofText(parts_.editor.oldText)};
  parts_.editor.asking = true;
  const XValue answer = services_.fire(EventId::OnExit, arguments);
  parts_.editor.asking = false;
  return answer.type() == VT_I4 ? answer.asInt() : noAnswer;
}

bool EditorController::tryCommit(CommitMode mode) {
  if (parts_.editor.asking) return false;
  if (!parts_.editor.active || closing_) return true;
  const GridWatch watch(parts_, services_);
  const EditOutcome outcome = editOutcome(askExit(), mode);
  if (!parts_.editor.active) return watch.holds();
  EditBox& box = *parts_.editor.box;
  if (outcome == EditOutcome::Stay && cellStands()) {
    if (box.hasFocus()) return false;
    parts_.focus.state = FocusState::Editor;
    box.setFocus();
    return false;
  }
  close({.refocus = mode != CommitMode::FocusLost || box.hasFocus(),
         .save = outcome == EditOutcome::Save,
         .popup = mode == CommitMode::Enter});
  return watch.holds();
}

bool EditorController::commitBeforeMove() {
  if (list_.isOpen()) list_.close(false);
  return tryCommit(CommitMode::FocusMoves);
}

void EditorController::abandon() {
  if (!parts_.editor.active || closing_) return;
  close({.refocus = parts_.editor.box->hasFocus(), .save = false, .popup = false});
}

void EditorController::rowInserted(std::int32_t row) {
  if (!parts_.editor.active) return;
  if (row <= cell_.row) ++cell_.row;
  tryCommit(CommitMode::FocusLost);
}

void EditorController::rowDeleted(std::int32_t row) {
  if (!parts_.editor.active) return;
  if (row == cell_.row) return abandon();
  if (row < cell_.row) --cell_.row;
  tryCommit(CommitMode::FocusLost);
}

bool EditorController::cellStands() const {
  return parts_.link.dataSet() && services_.generation() == cell_.generation &&
         cell_.row <= parts_.link.rowCount();
}

void EditorController::close(const Closing& closing) {
  if (!parts_.editor.active || closing_) return;
  closing_ = true;
  const XString colid = cell_.colid;
  const std::int32_t row = cell_.row;
  const bool popup = closing.popup && cellStands() && cell_.column->value().child.subType == EditKind::Popup;
  if (closing.save && cellStands()) writeText();
  if (popup) firePopup(colid, row, enterFlag);
  if (parts_.editor.box) parts_.editor.box->place(parkedEditor);
  parts_.editor.active = false;
  closing_ = false;
  if (closing.refocus) takeFocusBack();
  services_.Repaint(nullptr);
}

void EditorController::writeText() {
  const auto dataSet = parts_.link.holdDataSet();
  XValue text;
  text.setText(parts_.editor.box->text());
  dataSet->SetValue(cell_.row, parts_.link.columnIndex(cell_.column->value().refColumnId), text);
}

// The grid paints when the box is gone as a whole, not half way.
void EditorController::takeFocusBack() {
  if (!parts_.window || parts_.focus.state == FocusState::Grid) return;
  const DrawHold hold(parts_.settings);
  parts_.window->setFocus();
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
      if (column->child.isEditable(parts_.eval)) openEditor(true);
      return;
    case CellKind::Combo:
    case CellKind::Lookup:
      list_.open();
      return;
    case CellKind::Check:
      if (column->child.isEditable(parts_.eval)) toggleCheckByKey();
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
  if (!focus.FocusColumn->value().child.isEditable(parts_.eval)) return;
  if (!toggleCheckByKey()) toggleNode();
}

// A blank in a tree column has opened or closed the node already.
void EditorController::charArrived(char16_t character) {
  if (parts_.editor.active || isControlCharacter(character)) return;
  const ColumnRecord* const column = focusColumn();
  if (!column || !column->child.isEditable(parts_.eval)) return;
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
  if (!column.child.isEditable(parts_.eval) || parts_.link.level(row->row) > 0) return false;
  const std::int32_t index = parts_.page.VisibleIndex(row);
  if (index < 0) return false;
  const Rect cell = cellRect(parts_.frame(), column, index);
  if (markRect(column, cell).holds(x, y)) return pressMark(column, *row);
  const FocusModel& focus = parts_.focus;
  const bool isFocus = focus.CellMode && focus.FocusRow == row && focus.FocusColumn == position;
  return isFocus && buttonRect(column, cell).holds(x, y) && pressPopup(column, *row);
}

bool EditorController::pressPopup(const ColumnRecord& column, RowNode& row) {
  if (column.child.type == CellKind::Edit) return firePopup(XString(column.id), row.row, buttonFlag);
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

bool EditorController::editKeyDown(std::int32_t key) {
  if (std::find(handedUp.begin(), handedUp.end(), key) == handedUp.end()) return false;
  const Window* const window = parts_.window;
  if (keyTarget_) keyTarget_(key);
  if (key != key::tabDone && parts_.window == window) fireKeyDown(parts_, services_, key);
  return true;
}

void EditorController::editKeyDone(std::int32_t key) { fireKeyDown(parts_, services_, key); }

bool EditorController::editAllows(char16_t character) {
  const EditorModel& editor = parts_.editor;
  Selection selection;
  editor.box->selection(selection.start, selection.end);
  return mayEnter(editor.box->text(), selection, character,
                  {editor.inputType, editor.limit, editor.decimals});
}

void EditorController::editCharDone(char16_t) { services_.fire(EventId::OnChar, {}); }

bool EditorController::editAllowsComposition() {
  return (parts_.editor.inputType & input_type::numeric) == 0;
}

// Within the control nothing is lost but the box's own picture.
void EditorController::editFocusLost(FocusTarget target) {
  if (!parts_.window) return;
  if (target == FocusTarget::Elsewhere) {
    parts_.focus.state = FocusState::Outside;
    tryCommit(CommitMode::FocusLost);
    if (!parts_.window) return;
    services_.fire(EventId::OnKillFocus, {});
  }
  services_.Repaint(nullptr);
}

}  // namespace tessera
