#include "interaction/drop_list.h"

#include <algorithm>

#include "cells/cell_kinds.h"
#include "config/format_value.h"
#include "interaction/focused_child.h"
#include "interaction/grid_watch.h"
#include "interaction/key_events.h"
#include "interaction/page_cells.h"
#include "interaction/reading_scope.h"
#include "render/paint_result.h"

namespace tessera {
namespace {

constexpr std::int32_t borders = 2;  // above and below the items

bool codeOfItem(const ChildSpec& combo, std::int32_t chosen, XString& code) {
  if (chosen < 0 || chosen >= combo.comboItems.count()) return false;
  code = std::next(combo.comboItems.begin(), chosen)->code;
  return true;
}

bool codeOfRow(const ChildSpec& lookup, std::int32_t chosen, XString& code) {
  const auto dataSet = lookup.lookupDataset;
  const XString name = lookup.lookupCode;  // the answers may make the columns anew
  std::int32_t count = 0;
  if (dataSet) dataSet->GetRowCount(count);
  if (chosen < 0 || chosen >= count) return false;
  dataSet->GetTextByName(chosen + 1, name, code);
  return true;
}

}  // namespace

void DropListController::windowCreated() {
  parts_.editor.list = parts_.window->createListBox(*this);
  if (ListBox* list = parts_.editor.list.get()) list->show(false);
}

void DropListController::windowDestroyed() {
  open_ = false;
  parts_.editor.listClosing = false;
  parts_.editor.list.reset();
}

bool DropListController::canOpen() const {
  const FocusModel& focus = parts_.focus;
  if (!parts_.window || !parts_.settings.Enable || !parts_.editor.list || !parts_.link.dataSet())
    return false;
  if (!focus.CellMode || !focus.FocusRow || !focus.FocusColumn) return false;
  if (kindOf(focus.FocusColumn->value()).editor != CellEditor::List) return false;
  return parts_.link.level(focus.FocusRow.number) <= 0;
}

bool DropListController::open() {
  if (!canOpen()) return false;
  const std::int32_t row = parts_.focus.FocusRow.number;
  const ColumnPosition position = parts_.focus.FocusColumn;
  ColumnRecord& column = position->value();
  parts_.eval.ExprRow = row;
  const GridWatch watch(parts_, services_);
  Content content;
  bool isFilled = false;
  {
    const ReadingScope reading(parts_, services_);
    isFilled = column.child.isEditable(parts_.eval) && fill(column, row, content);
  }
  if (!isFilled || !watch.holds()) return false;
  showCell(column);
  target_ = {column.id, row, position, parts_.structure};
  show(column, std::move(content.items));
  if (!open_ || !parts_.editor.list) return false;
  parts_.editor.list->choose(content.chosen);
  fire<EventId::OnDropDown>(parts_, services_, target_.colid, row).last();
  return true;
}

// The focus may run the host, which may close the list again.
void DropListController::show(const ColumnRecord& column, std::vector<XString> items) {
  open_ = true;
  parts_.editor.listClosing = false;
  ListBox& list = *parts_.editor.list;
  list.setFont(column.view.effectiveFont(parts_.eval));
  list.place(placeFor(column, static_cast<std::int32_t>(items.size())));
  list.setItems(std::move(items));
  if (list.hasFocus()) return;
  parts_.focus.state = FocusState::List;
  list.show(true);
  list.setFocus();
}

bool DropListController::fill(ColumnRecord& column, std::int32_t row, Content& content) {
  XString code;
  parts_.link.text(row, parts_.link.columnIndex(column.refColumnId), code);
  switch (valueOfKind(column.child.type)) {
    case CellValue::ItemCode:
      content = comboContent(column, code);
      return true;
    case CellValue::LookupCode:
      if (!findLookup(column)) return false;
      content = lookupContent(column, code);
      return true;
    case CellValue::Text:
    case CellValue::Bare:
    case CellValue::PictureKey:
      break;
  }
  return false;
}

// The search runs the host, which may make all columns anew.
bool DropListController::findLookup(ColumnRecord& column) {
  if (column.child.lookupDataset) return true;
  const GridWatch watch(parts_, services_);
  const XString id = column.child.lookupDataId;
  auto found = info_.findDataSet(id);
  if (!found || !watch.holds()) return false;
  column.child.lookupDataset = std::move(found);
  return true;
}

// Of equal codes the last; without the code the first item.
DropListController::Content DropListController::comboContent(const ColumnRecord& column,
                                                             const XString& code) const {
  Content content;
  for (const ComboItem& item : column.child.comboItems) {
    if (item.code == code) content.chosen = static_cast<std::int32_t>(content.items.size());
    formatText(column.view, item.text, parts_.eval, content.items.emplace_back());
  }
  if (content.chosen < 0 && !content.items.empty()) content.chosen = 0;
  return content;
}

DropListController::Content DropListController::lookupContent(const ColumnRecord& column,
                                                              const XString& code) const {
  Content content;
  const auto dataSet = column.child.lookupDataset;
  std::int32_t count = 0;
  dataSet->GetRowCount(count);
  XValue value;
  for (std::int32_t row = 1; row <= count; ++row) {
    dataSet->GetValueByName(row, column.child.lookupText, value);
    formatValue(column.view, value, parts_.eval, content.items.emplace_back());
  }
  std::int32_t found = 0;
  dataSet->FindRow(column.child.lookupCode, code, found);
  content.chosen = std::max(found, 0) - 1;
  return content;
}

// The cell comes into view as a whole before the list stands at it: nothing else tells whose list this is,
// and the list does not move any more.
void DropListController::showCell(const ColumnRecord& column) {
  const GridFrame frame = parts_.frame();
  const std::int32_t top = parts_.page.TopOrdinal, stop = parts_.page.ColumnStop;
  ColumnScroll{parts_.config.columns, parts_.page, parts_.focus, frame}.EnsureColumnVisible(column);
  parts_.page.EnsureRowVisible(parts_.rows, frame.rowCapacity(), parts_.focus.FocusRow);
  if (parts_.page.TopOrdinal != top || parts_.page.ColumnStop != stop) services_.Repaint(nullptr);
}

// Below the cell, or above it where the screen ends.
Rect DropListController::placeFor(const ColumnRecord& column, std::int32_t itemCount) const {
  const Rect cell = layoutOf(parts_, column, parts_.focus.FocusRow).cell;
  const Point origin = parts_.window->clientOrigin();
  const std::int32_t left = addClamped(cell.left, origin.x);
  const std::int32_t shown = std::max(std::min(itemCount, column.child.showItemCount), 0);
  const std::int32_t height = addClamped(mulClamped(shown, parts_.editor.list->itemHeight()), borders);
  std::int32_t top = addClamped(cell.bottom, origin.y);
  if (addClamped(top, height) > parts_.window->screenSize().height) {
    top = subClamped(subClamped(top, height), cell.height());
  }
  return {left, top, addClamped(left, cell.width()), addClamped(top, height)};
}

// The list counts as closing before the cell is written: what the writing sets off finds it settled. It ends
// when it loses the focus, and at once when the focus cannot leave it.
bool DropListController::close(bool accept) {
  if (!open_ || parts_.editor.listClosing) return true;
  if (accept) {
    XString code;
    const bool stands = parts_.structure == target_.structure;
    const bool chosen = stands && chosenCode(code);
    if (stands && !chosen && valueOfKind(target_.column->value().child.type) == CellValue::LookupCode)
      return false;
    parts_.editor.listClosing = true;
    if (chosen) write(code);
  }
  parts_.editor.listClosing = true;
  if (parts_.window && open_) parts_.window->setFocus();
  if (open_ && parts_.editor.listClosing) listFocusLost();
  if (!controlHasFocus(parts_)) parts_.focus.state = FocusState::Outside;
  return true;
}

void DropListController::renumber(const RowsChanged& change) {
  if (!open_) return;
  if (const Row row = change({target_.row})) {
    target_.row = row.number;
  } else {
    close(false);
  }
}

bool DropListController::chosenCode(XString& code) const {
  const ChildSpec& child = target_.column->value().child;
  const std::int32_t chosen = parts_.editor.list->chosen();
  return valueOfKind(child.type) == CellValue::ItemCode ? codeOfItem(child, chosen, code)
                                                        : codeOfRow(child, chosen, code);
}

void DropListController::write(const XString& code) {
  const auto dataSet = parts_.link.holdDataSet();
  if (!dataSet) return;
  dataSet->SetText(target_.row, parts_.link.columnIndex(target_.column->value().refColumnId), code);
}

void DropListController::listFocusLost() {
  if (!open_ || !parts_.window) return;
  open_ = false;
  const bool byChoice = parts_.editor.listClosing;
  fire<EventId::OnCloseUp>(parts_, services_, target_.colid, target_.row).last();
  if (!byChoice && !open_ && hasLeftControl()) {
    parts_.focus.state = FocusState::Outside;
    fire<EventId::OnKillFocus>(parts_, services_).last();
    services_.Repaint(nullptr);
  }
  hide();
}

// A press outside the grid, or another program that took the focus while the pointer stood over the grid.
bool DropListController::hasLeftControl() const {
  if (!parts_.window) return false;
  const Point pointer = parts_.window->pointer();
  return !parts_.window->screenRect().holds(pointer.x, pointer.y) || !controlHasFocus(parts_);
}

// Unless a listener has opened it again.
void DropListController::hide() {
  if (open_) return;
  if (parts_.editor.list) parts_.editor.list->show(false);
  parts_.editor.listClosing = false;
}

void DropListController::listKeyDown(std::int32_t key) {
  if (key == key::enter || key == key::escape) close(key == key::enter);
}

void DropListController::listKeyDone(std::int32_t key) { fireKeyDown(parts_, services_, key); }

void DropListController::listCharDone(char16_t) { fire<EventId::OnChar>(parts_, services_).last(); }

void DropListController::listClicked() {
  close(true);
  services_.Repaint(nullptr);
}

}  // namespace tessera
