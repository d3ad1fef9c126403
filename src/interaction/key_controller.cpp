#include "interaction/key_controller.h"

#include <algorithm>

#include "interaction/key_events.h"

namespace tessera {

void KeyController::systemKeyDown() {
  if (blocks_.clear()) services_.Repaint(nullptr);
}

// A key that the edit box hands up is reported by whoever hands it up: the grid's window does not have the
// focus then.
void KeyController::keyDown(std::int32_t key) {
  const Window* const window = parts_.window;
  if (!window) return;
  const Modifiers modifiers = window->modifiers();
  if (blocks_.take(key, modifiers)) return services_.Repaint(nullptr);
  const bool ownKey = window->hasFocus();
  bool changed = dispatch(key, modifiers);
  if (parts_.window != window) return;
  if (ownKey || key == key::tabDone) fireKeyDown(parts_, services_, key);
  if (!modifiers.control && !modifiers.shift) changed = blocks_.clear() || changed;
  if (changed) services_.Repaint(nullptr);
}

bool KeyController::dispatch(std::int32_t key, Modifiers modifiers) {
  switch (key) {
    case key::left:
    case key::right:
    case key::up:
    case key::down:
      return arrow(key);
    case key::home:
    case key::end:
      return edge(key, modifiers.control);
    case key::pageUp:
    case key::pageDown:
      return page(key);
    case key::enter:
      editors_.enterAction();
      return true;
    case key::escape:
      editors_.escapeAction();
      return true;
    case key::space:
      editors_.spaceAction();
      return true;
    case key::tabDone:
      editors_.openEditor(false);
      return true;
    default:
      return false;
  }
}

Row KeyController::neighbour(Row row, bool down) {
  return down ? parts_.rows.NextRow(row) : parts_.rows.PreviousRow(row);
}

// As far as there are rows.
Row KeyController::awayFrom(Row row, bool down, std::int32_t count) {
  const std::int32_t ordinal = addClamped(parts_.rows.ordinal(row), down ? count : -count);
  return parts_.rows.nth(std::clamp(ordinal, 1, parts_.rows.displayCount()));
}

bool KeyController::arrow(std::int32_t key) {
  if (parts_.metrics.RowHeight <= 0) return false;
  if (!parts_.focus.CellMode) return arrowOfRows(key);
  const Cell from = focus_.focusCell();
  if (!from.row || !from.column) return false;
  if (key == key::left) return leftArrow(from);
  return key == key::right ? rightArrow(from) : verticalArrow(from, key);
}

// Several selected rows at the end of the rows shrink to their first.
bool KeyController::arrowOfRows(std::int32_t key) {
  const RowList& selected = parts_.focus.SelectedRows;
  if ((key != key::up && key != key::down) || selected.empty()) return false;
  const bool down = key == key::down;
  const Row head = selected.front();
  Row target = neighbour(head, down);
  if (!target) {
    if (selected.size() == 1) {
      services_.fire(down ? EventId::OnLastDown : EventId::OnFirstUp, {});
      return false;
    }
    target = head;
  }
  const std::vector<Row>& page = parts_.page.VisibleRows;
  MoveStyle style;
  if (!page.empty() && (down ? target == page.back() : head == page.front()))
    style.scrollRows = down ? 1 : -1;
  return focus_.selectRow(target, style) == MoveResult::Moved;
}

bool KeyController::leftArrow(const Cell& from) {
  const std::optional<Cell> target = steps().left(from);
  return target && focus_.moveTo(*target) == MoveResult::Moved;
}

bool KeyController::rightArrow(const Cell& from) {
  const CellSteps cells = steps();
  if (cells.mustScrollBack(from)) {
    focus_.scrollFullyLeft();
    if (const std::optional<Cell> target = cells.firstScrolled(from)) {
      focus_.moveTo(*target, {.showCell = false});
    }
    return true;
  }
  const std::optional<Cell> target = cells.right(from);
  return target && focus_.moveTo(*target) == MoveResult::Moved;
}

bool KeyController::verticalArrow(const Cell& from, std::int32_t key) {
  const bool down = key == key::down;
  const CellSteps::VerticalStep step = down ? steps().down(from) : steps().up(from);
  switch (step.outcome) {
    case CellSteps::Vertical::NoRow:
      services_.fire(down ? EventId::OnLastDown : EventId::OnFirstUp, {});
      return false;
    case CellSteps::Vertical::NoCell:
      return false;
    case CellSteps::Vertical::Found:
      break;
  }
  return focus_.moveTo(step.cell) == MoveResult::Moved;
}

bool KeyController::page(std::int32_t key) {
  const bool down = key == key::pageDown;
  const std::int32_t rows = parts_.frame().rowCapacity();
  if (rows <= 0) return false;
  if (!parts_.focus.CellMode) return pageOfRows(down, rows);
  Cell target = focus_.focusCell();
  if (!target.row || !target.column) return false;
  const Row row = awayFrom(target.row, down, rows);
  if (row == target.row) return false;
  target.row = row;
  return focus_.moveTo(target, {.scrollRows = down ? rows : -rows}) == MoveResult::Moved;
}

bool KeyController::pageOfRows(bool down, std::int32_t rows) {
  const RowList& selected = parts_.focus.SelectedRows;
  if (selected.empty()) return false;
  const Row target = awayFrom(selected.front(), down, rows);
  if (target == selected.front() && selected.size() == 1) return false;
  return focus_.selectRow(target, {.scrollRows = down ? rows : -rows}) == MoveResult::Moved;
}

bool KeyController::edge(std::int32_t key, bool control) {
  const bool atEnd = key == key::end;
  if (parts_.focus.CellMode) return edgeOfCells(atEnd, control);
  return control && edgeOfRows(atEnd ? parts_.rows.lastDisplayable() : parts_.rows.first());
}

bool KeyController::edgeOfRows(Row target) {
  const RowList& selected = parts_.focus.SelectedRows;
  if (!target || (selected.size() == 1 && selected.front() == target)) return false;
  return focus_.selectRow(target, {.onTop = true}) == MoveResult::Moved;
}

// The columns scroll even when the focus is there already, but not when there is no cell to go to.
bool KeyController::edgeOfCells(bool atEnd, bool control) {
  Cell target = focus_.focusCell();
  if (!target.row) return false;
  const std::int32_t stop = parts_.page.ColumnStop;
  const std::int32_t moved = atEnd ? focus_.scrollFullyRight() : focus_.scrollFullyLeft();
  const CellSteps cells = steps();
  const Cell from = target;
  if (control) {
    target.row = atEnd ? parts_.rows.lastDisplayable() : parts_.rows.first();
    target.line = atEnd ? cells.lineCount() - 1 : 0;
  }
  target.column = atEnd ? cells.end(target.line) : cells.home(target.line);
  if (!target.row || !target.column) {
    focus_.scrollBack(moved, stop);
    return false;
  }
  if (target.row == from.row && target.column == from.column) return true;
  focus_.moveTo(target, {.onTop = control});
  return true;
}

}  // namespace tessera
