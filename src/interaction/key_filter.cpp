#include "interaction/key_filter.h"

#include <algorithm>

#include "cells/cell_kinds.h"
#include "interaction/key_events.h"

namespace tessera {
namespace {

constexpr std::int32_t firstNavigationKey = key::pageUp, lastNavigationKey = key::down;

}  // namespace

KeyRoute KeyFilter::translate(std::int32_t& key) {
  if (!parts_.window || !parts_.settings.Enable || parts_.link.rowCount() < 1) return KeyRoute::Host;
  if (key >= firstNavigationKey && key <= lastNavigationKey) return KeyRoute::Window;
  if (key == key::tab) return tab(key);
  if (!parts_.window->modifiers().control) return KeyRoute::Host;
  if (key == key::c) return copy();
  return key == key::v ? paste() : KeyRoute::Host;
}

bool KeyFilter::someCellEdits() const {
  const ColumnList& columns = parts_.config.columns;
  return std::any_of(columns.begin(), columns.end(), [](const ColumnRecord& column) {
    return column.viewVisible && kindOf(column).takesTab;
  });
}

// The search may have scrolled, which has to be seen however the Tab ends.
KeyRoute KeyFilter::tab(std::int32_t& key) {
  const Cell start = focus_.focusCell();
  std::optional<Cell> target;
  if (start.row && start.column && someCellEdits()) {
    const std::int32_t stop = parts_.page.ColumnStop;
    target = nextEditable(start, parts_.window->modifiers().shift);
    if (parts_.page.ColumnStop != stop) services_.Repaint(nullptr);
  }
  if (!target) {
    fireKeyDown(parts_, services_, key::tabDone);
    return KeyRoute::Host;
  }
  const MoveResult result = focus_.moveTo(*target, {.setInput = false});
  if (!parts_.window || !parts_.settings.Enable) return KeyRoute::Done;
  if (result == MoveResult::EditorStays) {
    fireKeyDown(parts_, services_, key::tabDone);
    return KeyRoute::Done;
  }
  key = key::tabDone;
  return KeyRoute::Window;
}

// Columns that are scrolled away behind the fixed ones come back before the walk goes on among them.
std::optional<Cell> KeyFilter::nextEditable(const Cell& start, bool back) {
  const CellSteps steps(parts_.config.columns, parts_.metrics, parts_.rows);
  Cell at = start;
  for (;;) {
    if (!back && steps.mustScrollBack(at)) focus_.scrollFullyLeft();
    const std::optional<Cell> next = back ? steps.left(at) : steps.right(at);
    if (!next) return std::nullopt;
    at = *next;
    const bool isStart = at.row == start.row && at.column == start.column;
    if (isStart || !kindOf(at.column->value()).takesTab) continue;
    if (parts_.link.level(at.row.number) == 0) return at;
  }
}

KeyRoute KeyFilter::copy() {
  if (parts_.focus.CellMode && editors_.active()) return KeyRoute::Window;
  fire<EventId::OnCopy>(parts_, services_, parts_.focus.CellMode, blocks_.stands()).last();
  return KeyRoute::Done;
}

KeyRoute KeyFilter::paste() {
  const FocusModel& focus = parts_.focus;
  if (focus.CellMode && editors_.active()) return KeyRoute::Window;
  const Row row = focus.currentRow();
  if (!row) return KeyRoute::Done;
  const bool hasColumn = focus.CellMode && focus.FocusColumn;
  const XString colid = hasColumn ? focus.FocusColumn->value().id : XString();
  fire<EventId::OnPaste>(parts_, services_, colid, row).last();
  return KeyRoute::Done;
}

}  // namespace tessera
