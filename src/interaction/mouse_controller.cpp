#include "interaction/mouse_controller.h"

#include <cstdlib>

#include "cells/head_layout.h"
#include "interaction/cursor_shape.h"
#include "interaction/fire_event.h"
#include "interaction/page_cells.h"
#include "interaction/reading_scope.h"

namespace tessera {

namespace {

bool isRowRegion(Region region) { return region == Region::Row || region == Region::SummaryRow; }

// Far enough from the press to count as a move.
bool hasMoved(Point from, Point to) {
  constexpr std::int32_t reach = 3;
  return std::abs(subClamped(to.x, from.x)) >= reach || std::abs(subClamped(to.y, from.y)) >= reach;
}

}  // namespace

// Nothing is hit where the grid was made anew while it was asked.
Hit MouseController::hitAt(Point at) const {
  const GridWatch watch(parts_, services_);
  Hit hit;
  {
    const ReadingScope reading(parts_, services_);
    hit = hitTest(parts_.frame(), parts_.config.columns, parts_.page, parts_.link, at.x, at.y);
  }
  return watch.holds() ? hit : Hit();
}

MouseController::Spot MouseController::spotAt(Point at) const {
  const Hit hit = hitAt(at);
  return {hit, hit.column ? hit.column->value().id : XString(), at, GridWatch(parts_, services_)};
}

bool MouseController::stands(const Spot& spot) const { return parts_.window && spot.watch.holds(); }

// A commit that lost its grid to the host has closed the editor all the same.
bool MouseController::closeEditor() {
  if (!parts_.editor.active) return true;
  return editors_.commitBeforeMove() || !parts_.editor.active;
}

// The editor's commit and the focus let the host run before anything is known about the place: so it is
// looked at afterwards.
void MouseController::leftDown(Point at) {
  if (!parts_.window) return;
  if (endPress()) services_.Repaint(nullptr);
  const bool free = closeEditor();
  if (free && parts_.window && !parts_.window->hasFocus()) parts_.window->setFocus();
  Spot spot = spotAt(at);
  if (!free || !parts_.window) return fireMouse<EventId::OnLButtonDown>(spot);
  if (spot.hit.region == Region::Header && tickHeadCheck(spot)) return;
  const PressResult result = press(spot);
  if (!result.over) {
    if (parts_.settings.DragDrop != 0 && !result.handled) {
      parts_.mouse.state = MouseState::Pressed;
      parts_.mouse.press = at;
    }
    if (result.repaint) services_.Repaint(nullptr);
  }
  fireMouse<EventId::OnLButtonDown>(spot);
}

MouseController::PressResult MouseController::press(Spot& spot) {
  switch (spot.hit.region) {
    case Region::Header:
      return {.repaint = pressHeader(spot)};
    case Region::Indicator:
    case Region::Row:
    case Region::SummaryRow:
      return pressRows(spot);
    case Region::SummaryBand:
    case Region::Nothing:
      break;
  }
  return {};
}

bool MouseController::tickHeadCheck(const Spot& spot) {
  if (!spot.hit.column) return false;
  ColumnRecord& column = spot.hit.column->value();
  if (!layoutHead(column.header).check.pressed.holds(spot.at.x, spot.at.y)) return false;
  column.header.checked = !column.header.checked;
  services_.Repaint(nullptr);
  fire<EventId::OnHeadCheckClick>(parts_, services_, column.index, spot.colid,
                                  std::int32_t{column.header.checked ? 1 : 0})
      .last();
  return true;
}

bool MouseController::pressHeader(const Spot& spot) {
  return !resize_.start(spot.at) && sort_.start(spot.hit.column, spot.at);
}

// The tree box is tested where it stood when the button went down: the selection may scroll it away.
MouseController::PressResult MouseController::pressRows(Spot& spot) {
  constexpr PressResult over{.over = true};
  if ((parts_.settings.DragDrop & drag_drop::rows) && gestures_.tryDrag(spot.hit, spot.at)) return over;
  if (!stands(spot)) return over;
  const bool changes = changesSelection(spot.hit);
  if (changes && (focus_.refusal(spot.colid, spot.hit.row) || !stands(spot))) return over;
  const bool onTreeBox = isOnTreeBox(spot);
  const bool handled = editors_.activateCell(spot.at.x, spot.at.y, spot.hit.column, spot.hit.dataRow());
  if (!stands(spot)) return over;
  focus_.pressRow(spot.hit, spot.at, parts_.window->modifiers());
  if (onTreeBox && stands(spot)) editors_.toggleNode(spot.hit.dataRow());
  gestures_.clearBlock();
  if (changes && stands(spot)) fireSelChanged(spot);
  return {.handled = handled, .repaint = true};
}

bool MouseController::isFocusCell(const Hit& hit) const {
  const FocusModel& focus = parts_.focus;
  return focus.CellMode && hit.column && hit.column == focus.FocusColumn && hit.dataRow() == focus.FocusRow;
}

bool MouseController::changesSelection(const Hit& hit) const {
  const FocusModel& focus = parts_.focus;
  if (focus.CellMode) return !isRowRegion(hit.region) || !isFocusCell(hit);
  const bool isSingle = focus.SelectedRows.size() == 1 && focus.SelectedRows.front() == hit.dataRow();
  return hit.region != Region::Indicator || !isSingle;
}

bool MouseController::isOnTreeBox(const Spot& spot) const {
  if (!spot.hit.column || !spot.hit.dataRow()) return false;
  const CellLayout layout = layoutOf(parts_, spot.hit.column->value(), spot.hit.dataRow());
  return layout.treeBox.pressed.holds(spot.at.x, spot.at.y);
}

void MouseController::move(Point at) {
  bool changed = resize_.step(at.x);
  changed = sort_.step(at) || changed;
  changed = gestures_.stepBlock(at) || changed;
  MouseModel& mouse = parts_.mouse;
  if (mouse.state == MouseState::Pressed && hasMoved(mouse.press, at)) {
    const bool block = (parts_.settings.DragDrop & drag_drop::block) && gestures_.startBlock(mouse.press);
    mouse.state = block ? MouseState::Block : MouseState::Idle;
    changed = changed || block;
  }
  if (changed) services_.Repaint(nullptr);
}

void MouseController::leftUp(Point at) {
  if (!parts_.window) return;
  const Spot spot = spotAt(at);
  const bool onHeader = spot.hit.region == Region::Header;
  bool ended = resize_.end();
  ended = sort_.release(onHeader ? spot.hit.column : nullptr) || ended;
  ended = gestures_.endBlock() || ended;
  parts_.mouse.state = MouseState::Idle;
  if (ended) services_.Repaint(nullptr);
  fireMouse<EventId::OnLButtonUp>(spot);
}

bool MouseController::endPress() {
  const bool sort = sort_.end();
  const bool resize = resize_.end();
  return sort || resize;
}

void MouseController::windowDestroyed() {
  endPress();
  parts_.mouse.state = MouseState::Idle;
}

// The first press of the two has made the cell the focus cell.
void MouseController::leftDouble(Point at) {
  if (!parts_.window) return;
  const Spot spot = spotAt(at);
  if (isRowRegion(spot.hit.region)) {
    parts_.eval.ExprRow = spot.hit.row;
    if (spot.hit.column && !spot.hit.column->value().child.isEditable(parts_.eval)) return;
    const bool opens = !parts_.focus.CellMode || isFocusCell(spot.hit);
    if (opens && editors_.openEditor(false)) services_.Repaint(nullptr);
  }
  fireMouse<EventId::OnLButtonDblClk>(spot);
}

void MouseController::rightDown(Point at) {
  if (!parts_.window || !closeEditor()) return;
  if (parts_.window && parts_.focus.state == FocusState::Outside) parts_.window->setFocus();
  fireMouse<EventId::OnRButtonDown>(spotAt(at));
}

void MouseController::rightUp(Point at) {
  if (parts_.window) fireMouse<EventId::OnRButtonUp>(spotAt(at));
}

void MouseController::rightDouble(Point at) {
  if (parts_.window) fireMouse<EventId::OnRButtonDblClk>(spotAt(at));
}

void MouseController::showCursor() {
  if (!parts_.window) return;
  const Point pointer = parts_.window->pointer();
  const Point origin = parts_.window->clientOrigin();
  const Point at{subClamped(pointer.x, origin.x), subClamped(pointer.y, origin.y)};
  const Hit hit = hitAt(at);
  if (!parts_.window) return;
  const GridFrame frame = parts_.frame();
  const bool canDrag = (parts_.settings.DragDrop & drag_drop::rows) && gestures_.canDrag(hit, at);
  const CursorScene scene{frame, parts_.config.columns, parts_.settings, parts_.eval};
  parts_.window->setCursor(cursorShape(scene, hit, at, canDrag));
}

template <EventId id>
void MouseController::fireMouse(const Spot& spot) {
  fire<id>(parts_, services_, static_cast<std::int32_t>(spot.hit.region), spot.hit.row, spot.colid, spot.at.x,
           spot.at.y)
      .last();
}

void MouseController::fireSelChanged(const Spot& spot) {
  fire<EventId::OnSelChanged>(parts_, services_, spot.colid, spot.hit.row).last();
}

}  // namespace tessera
