#include "interaction/editor_controller.h"

#include <algorithm>
#include <array>
#include <utility>

#include "cells/cell_kinds.h"
#include "interaction/edit_outcome.h"
#include "interaction/focused_child.h"
#include "interaction/key_events.h"
#include "interaction/reading_scope.h"

namespace tessera {
namespace {

// Keys that the grid takes although the box has the focus.
constexpr std::array handedUp = {key::enter,  key::escape,   key::up,     key::down,
                                 key::pageUp, key::pageDown, key::tabDone};

}  // namespace

void EditorController::windowCreated() {
  parts_.editor.box = parts_.window->createEditBox(*this);
  if (EditBox* box = parts_.editor.box.get()) box->place(parkedEditor);
  list_.windowCreated();
}

void EditorController::windowDestroyed() {
  EditBox* const box = parts_.editor.box.get();
  if (parts_.editor.active) close({.refocus = box->hasFocus(), .save = true, .popup = false});
  parts_.editor.active = false;
  closing_ = false;
  parts_.editor.box.reset();
  list_.windowDestroyed();
  parts_.focus.state = FocusState::Outside;
}

void EditorController::place(const PaintResult& result) {
  EditBox* const box = parts_.editor.box.get();
  if (!parts_.editor.active || !box) return;
  const FocusModel& focus = parts_.focus;
  const bool inCell = focus.CellMode && focus.FocusRow && focus.FocusColumn;
  if (result.editorPlace) {
    if (box->placement() != *result.editorPlace) box->place(*result.editorPlace);
  } else if (result.parkEditor || !inCell) {
    box->place(parkedEditor);
  }
}

ColumnRecord* EditorController::focusColumn() {
  const FocusModel& focus = parts_.focus;
  if (!parts_.window || !parts_.link.dataSet()) return nullptr;
  if (!focus.CellMode || !focus.FocusRow || !focus.FocusColumn) return nullptr;
  const bool sums = parts_.link.level(focus.FocusRow.number) > 0;
  if (sums || !focus.FocusRow || !focus.FocusColumn)
    return nullptr;  // the answer may have made the grid anew
  parts_.eval.ExprRow = focus.FocusRow.number;
  return &focus.FocusColumn->value();
}

void EditorController::focusGridIfOutside() {
  if (parts_.window && parts_.focus.state == FocusState::Outside) parts_.window->setFocus();
}

bool EditorController::firePopup(const XString& colid, std::int32_t row, std::int32_t flag) {
  fire<EventId::OnPopup>(parts_, services_, colid, row, flag).last();
  focusGridIfOutside();
  return true;
}

bool EditorController::openEditor(bool withPopup) {
  const ColumnRecord* const column = focusColumn();
  if (!column || !parts_.settings.Enable || parts_.editor.active) return false;
  if (kindOf(*column).editor != CellEditor::Box) return false;
  const std::int32_t row = parts_.focus.FocusRow.number;
  const XString colid = column->id;
  if (column->child.subType == EditKind::PopupFix) {
    return !withPopup || firePopup(colid, row, popupByEnter);
  }
  if (!parts_.editor.box) return false;
  const GridWatch watch(parts_, services_);
  cell_ = {colid, column->refColumnId, row, parts_.focus.FocusColumn, parts_.structure, ++lastSerial_};
  {
    const ReadingScope reading(parts_, services_);
    fillBox(*column, row);
  }
  if (!watch.holds() || !parts_.editor.box) return false;
  parts_.editor.active = true;
  const std::uint64_t serial = cell_.serial;
  if (!focusBox(watch, serial)) return false;
  fire<EventId::OnEnter>(parts_, services_, colid, row).last();
  return isOpen(serial);
}

EditRules EditorController::takeRules(const ColumnRecord& column, std::int32_t dataColumn,
                                      bool& numeric) const {
  const ChildSpec& child = column.child;
  const auto dataSet = parts_.link.holdDataSet();
  if (!dataSet) return {};  // it has closed in the middle of an answer
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
bool EditorController::focusBox(const GridWatch& watch, std::uint64_t serial) {
  focusGridIfOutside();
  if (watch.holds() && isOpen(serial) && parts_.focus.state != FocusState::Editor) {
    parts_.focus.state = FocusState::Editor;
    parts_.editor.box->setFocus();
  }
  if (isOpen(serial) && !watch.holds()) abandon();
  return isOpen(serial);
}

std::int32_t EditorController::askExit() {
  constexpr std::int32_t noAnswer = 2;
  askedSerial_ = cell_.serial;
  left_.reset();
  parts_.editor.asking = true;
  const Fired asked = fire<EventId::OnExit>(parts_, services_, cell_.colid, cell_.row, parts_.editor.oldText);
  parts_.editor.asking = false;
  return asked.answer.type() == VT_I4 ? asked.answer.asInt() : noAnswer;
}

// In a grid that was disabled meanwhile there is nowhere to stay.
bool EditorController::tryCommit(CommitMode mode) {
  if (parts_.editor.asking) return false;
  if (!parts_.editor.active || closing_) return true;
  const GridWatch watch(parts_, services_);
  EditOutcome outcome = editOutcome(askExit(), mode);
  if (outcome == EditOutcome::Stay && !parts_.settings.Enable) outcome = EditOutcome::Drop;
  if (!isOpen(askedSerial_)) {
    saveLeftText(outcome);
  } else if (outcome == EditOutcome::Stay && cellStands()) {
    return stay();
  } else {
    close({.refocus = mode != CommitMode::FocusLost || parts_.editor.box->hasFocus(),
           .save = outcome == EditOutcome::Save,
           .popup = mode == CommitMode::Enter});
  }
  return watch.holds() && !parts_.editor.active;
}

bool EditorController::stay() {
  if (parts_.editor.box->hasFocus()) return false;
  parts_.focus.state = FocusState::Editor;
  parts_.editor.box->setFocus();
  return false;
}

bool EditorController::commitBeforeMove() {
  list_.close(false);
  const bool reopened = list_.isOpen() && !parts_.editor.listClosing;
  return tryCommit(CommitMode::FocusMoves) && !reopened;
}

void EditorController::settle() {
  list_.close(false);
  tryCommit(CommitMode::FocusLost);
}

void EditorController::abandon() {
  list_.close(false);
  leaveText();
  drop();
}

void EditorController::drop() {
  if (parts_.editor.active) finish(parts_.editor.box->hasFocus());
}

void EditorController::forgetRows() {
  abandon();
  left_.reset();
}

// The text of an edit that is being written already is no longer in question.
void EditorController::leaveText() {
  if (!parts_.editor.asking || closing_ || !isOpen(askedSerial_)) return;
  left_ = LeftText{cell_.refColumnId, cell_.row, parts_.editor.box->text()};
}

void EditorController::saveLeftText(EditOutcome outcome) {
  const auto left = std::exchange(left_, std::nullopt);
  const auto dataSet = parts_.link.holdDataSet();
  if (!left || outcome != EditOutcome::Save || !dataSet || left->row > parts_.link.rowCount()) return;
  dataSet->SetValue(left->row, parts_.link.columnIndex(left->refColumnId), XValue::ofText(left->text));
}

void EditorController::renumber(const RowsChanged& change) {
  list_.renumber(change);
  if (left_) left_->row = change({left_->row}).number;
  if (left_ && left_->row == 0) left_.reset();
  const Row row = change({cell_.row});
  if (!row) return drop();
  cell_.row = row.number;
}

// The question for the rows comes first: its answer may make the grid anew.
bool EditorController::cellStands() const {
  const std::int32_t count = parts_.link.rowCount();
  return parts_.link.dataSet() && parts_.structure == cell_.structure && cell_.row <= count;
}

// The data set and the listener of OnPopup may end this edit, and may begin another one.
void EditorController::close(const Closing& closing) {
  if (!parts_.editor.active || closing_) return;
  closing_ = true;
  const EditedCell cell = cell_;
  const bool popup = closing.popup && cellStands() && cell.column->value().child.subType == EditKind::Popup;
  if (closing.save && cellStands()) writeText();
  if (popup) firePopup(cell.colid, cell.row, popupByEnter);
  if (isOpen(cell.serial)) finish(closing.refocus);
}

void EditorController::finish(bool refocus) {
  if (parts_.editor.box) parts_.editor.box->place(parkedEditor);
  parts_.editor.active = false;
  closing_ = false;
  if (refocus) takeFocusBack();
  services_.Repaint(nullptr);
}

void EditorController::writeText() {
  const auto dataSet = parts_.link.holdDataSet();
  const XValue text = XValue::ofText(parts_.editor.box->text());
  dataSet->SetValue(cell_.row, parts_.link.columnIndex(cell_.refColumnId), text);
}

// The grid paints when the box is gone as a whole, not half way. A window that may not have the focus leaves
// the control without it.
void EditorController::takeFocusBack() {
  if (!parts_.window || parts_.focus.state == FocusState::Grid) return;
  const DrawHold hold(parts_);
  parts_.window->setFocus();
  if (!controlHasFocus(parts_)) parts_.focus.state = FocusState::Outside;
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
  if (!editor.active || !editor.box) return false;
  Selection selection;
  editor.box->selection(selection.start, selection.end);
  return mayEnter(editor.box->text(), selection, character,
                  {editor.inputType, editor.limit, editor.decimals});
}

void EditorController::editCharDone(char16_t) { fire<EventId::OnChar>(parts_, services_).last(); }

bool EditorController::editAllowsComposition() {
  return (parts_.editor.inputType & input_type::numeric) == 0;
}

// Within the control nothing is lost but the box's own picture. A listener of OnExit may have fetched the
// focus back.
void EditorController::editFocusLost(FocusTarget target) {
  if (!parts_.window) return;
  if (target == FocusTarget::Elsewhere) {
    parts_.focus.state = FocusState::Outside;
    tryCommit(CommitMode::FocusLost);
    if (!parts_.window) return;
    if (parts_.focus.state == FocusState::Outside) fire<EventId::OnKillFocus>(parts_, services_).last();
  }
  services_.Repaint(nullptr);
}

}  // namespace tessera
