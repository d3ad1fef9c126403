#include "interaction/row_toggle.h"

#include "interaction/fire_event.h"
#include "interaction/grid_watch.h"

namespace tessera {
bool RowToggle::hasTree() const {
  return parts_.readings == 0 && parts_.link.dataSet() && parts_.config.tree.rowMode != RowMode::Plain &&
         !parts_.rows.isPlain() && !parts_.page.VisibleRows.empty();
}

bool RowToggle::ToggleNode(Row row) {
  if (!hasTree() || !parts_.rows.find(row.number)) return false;
  switch (parts_.rows.state(row)) {
    case RowState::Collapsed:
      return open(row);
    case RowState::Expanded:
      return close(row);
    case RowState::Leaf:
      break;
  }
  return false;
}

template <EventId question>
bool RowToggle::mayToggle(Row row) {
  const GridWatch watch(parts_, services_);
  const RowState state = parts_.rows.state(row);
  if (!editors_.commitBeforeMove() || !watch.holds()) return false;
  const Fired asked = fire<question>(parts_, services_, row);
  return asked.stands && !asked.refuses() && parts_.rows.state(row) == state;
}

bool RowToggle::open(Row row) {
  if (!mayToggle<EventId::OnExpanding>(row)) return false;
  parts_.rows.toggle(row);
  showRows();
  fire<EventId::OnExpanded>(parts_, services_, row).last();
  return true;
}

bool RowToggle::close(Row row) {
  if (!mayToggle<EventId::OnCollapsing>(row)) return false;
  const Row focus = parts_.focus.currentRow();
  const bool hides = focus && parts_.rows.shownAncestor(focus) == focus && parts_.rows.isAncestor(focus, row);
  parts_.rows.toggle(row);
  if (hides) moveFocus(row);
  const GridWatch watch(parts_, services_);
  if (const Row current = parts_.focus.currentRow()) parts_.link.syncCurrentRow(current.number);
  if (!watch.holds()) return false;
  showRows();
  fire<EventId::OnCollapsed>(parts_, services_, row).last();
  return true;
}

// In row mode the row takes the place of the head.
void RowToggle::moveFocus(Row row) {
  FocusModel& focus = parts_.focus;
  const Row left = focus.currentRow();
  if (left && left != row && !focus.leftFlags.holds(left)) focus.leftFlags.append(left);
  if (focus.CellMode) {
    focus.FocusRow = row;
    return;
  }
  if (!focus.SelectedRows.empty()) focus.SelectedRows.removeFirst();
  focus.SelectedRows.putFirst(row);
}

void RowToggle::showRows() {
  parts_.page.RefillFrom(parts_.rows, parts_.frame().rowCapacity(), parts_.page.VisibleAt(0));
  parts_.updateBars(bar_bit::vertical);
}

void RowToggle::toggleFrom(RowState state, std::int32_t number) {
  if (!hasTree()) return;
  const Row row = parts_.rows.find(number);
  if (row && parts_.rows.state(row) == state && ToggleNode(row)) services_.Repaint(nullptr);
}

void RowToggle::expandAll() {
  if (!hasTree() || !editors_.commitBeforeMove() || !hasTree()) return;
  parts_.rows.expandAll();
  showRows();
  services_.Repaint(nullptr);
}

void RowToggle::collapseAll() {
  if (!hasTree() || !editors_.commitBeforeMove() || !hasTree()) return;
  parts_.rows.collapseAll();
  showRows();
  const Row first = parts_.rows.first();
  moveFocus(first);
  parts_.page.EnsureRowVisible(parts_.rows, parts_.frame().rowCapacity(), first);
  services_.Repaint(nullptr);
}

}  // namespace tessera
