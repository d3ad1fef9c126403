#include "interaction/row_select.h"

#include <utility>

namespace tessera {
namespace {

RowList only(Row row) {
  RowList list;
  if (row) list.append(row);
  return list;
}

}  // namespace

RowList RowSelection::marked() const {
  const FocusModel& focus = parts_.focus;
  return focus.CellMode ? only(focus.FocusRow) : focus.SelectedRows;
}

bool RowSelection::flag(const RowList& off, const RowList& on) {
  const GridWatch watch(parts_, services_);
  const auto mark = [&](bool selected) {
    return [&, selected](Row row) {
      if (watch.holds()) parts_.link.setRowSelected(row.number, selected);
      return watch.holds();
    };
  };
  const RowList left = std::exchange(parts_.focus.leftFlags, {});
  parts_.link.moveSelf([&] {
    left.visitWhile(mark(false));
    off.visitWhile(mark(false));
    on.visitWhile(mark(true));
  });
  return watch.holds();
}

bool RowSelection::markOnly(Row row) { return flag(marked(), only(row)); }

void RowSelection::toRowMode() {
  FocusModel& focus = parts_.focus;
  if (focus.CellMode) focus.SelectedRows.clear();
  focus.CellMode = false;
  focus.FocusColumn = nullptr;
}

bool RowSelection::selectOnly(Row row) {
  if (!markOnly(row)) return false;
  toRowMode();
  parts_.focus.SelectedRows.assign(row);
  return true;
}

bool RowSelection::toggle(Row row) {
  const FocusModel& focus = parts_.focus;
  const bool selected = !focus.CellMode && holds(row);
  if (selected && focus.SelectedRows.size() == 1) return false;
  const RowList off = focus.CellMode ? marked() : only(selected ? row : noRow);
  if (!flag(off, only(selected ? noRow : row))) return false;
  toRowMode();
  if (selected) {
    parts_.focus.SelectedRows.remove(row);
  } else {
    parts_.focus.SelectedRows.putFirst(row);
  }
  return true;
}

bool RowSelection::extendTo(Row row) {
  const bool downward = parts_.rows.isBefore(head(), row);
  RowList list;
  for (Row each = head(); each; each = downward ? parts_.rows.NextRow(each) : parts_.rows.PreviousRow(each)) {
    list.append(each);
    if (each == row) break;
  }
  if (!flag(marked(), list)) return false;
  parts_.focus.SelectedRows = std::move(list);
  return true;
}

bool RowSelection::follow(Row row) {
  FocusModel& focus = parts_.focus;
  if (row && !focus.CellMode) return followInRowMode(row);
  if (row && row != focus.FocusRow && !markOnly(row)) return false;
  if (!row && !flag(marked(), {})) return false;
  focus.FocusRow = row;
  if (!row) focus.SelectedRows.clear();
  return true;
}

bool RowSelection::followInRowMode(Row row) {
  FocusModel& focus = parts_.focus;
  if (!flag(only(head() != row ? head() : noRow), only(row))) return false;
  if (!focus.SelectedRows.empty()) focus.SelectedRows.removeFirst();
  focus.SelectedRows.putFirst(row);
  return true;
}

}  // namespace tessera
