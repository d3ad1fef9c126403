#include "interaction/row_select.h"

namespace tessera {

RowSelection::Numbers RowSelection::marked() const {
  const FocusModel& focus = parts_.focus;
  Numbers numbers;
  if (focus.CellMode) {
    if (focus.FocusRow) numbers.push_back(focus.FocusRow->row);
    return numbers;
  }
  numbers.reserve(focus.SelectedRows.size());
  for (const RowNode* row : focus.SelectedRows) numbers.push_back(row->row);
  return numbers;
}

bool RowSelection::flag(const Numbers& off, const Numbers& on) {
  const GridWatch watch(parts_, services_);
  parts_.link.moveSelf([&] {
    for (const std::int32_t row : off) {
      if (watch.holds()) parts_.link.setRowSelected(row, false);
    }
    for (const std::int32_t row : on) {
      if (watch.holds()) parts_.link.setRowSelected(row, true);
    }
  });
  return watch.holds();
}

bool RowSelection::markOnly(RowNode*& row) {
  const std::int32_t number = row->row;
  const bool kept = flag(marked(), {number});
  row = kept ? parts_.rows.find(number) : nullptr;
  return row != nullptr;
}

void RowSelection::toRowMode() {
  FocusModel& focus = parts_.focus;
  if (focus.CellMode) focus.SelectedRows.clear();
  focus.CellMode = false;
  focus.FocusColumn = nullptr;
}

bool RowSelection::selectOnly(RowNode* row) {
  if (!markOnly(row)) return false;
  toRowMode();
  parts_.focus.SelectedRows.assign({row});
  return true;
}

bool RowSelection::toggle(RowNode* row) {
  const FocusModel& focus = parts_.focus;
  const std::int32_t number = row->row;
  const bool selected = !focus.CellMode && holds(row);
  if (selected && focus.SelectedRows.size() == 1) return false;
  const Numbers off = focus.CellMode ? marked() : selected ? Numbers{number} : Numbers{};
  if (!flag(off, selected ? Numbers{} : Numbers{number})) return false;
  row = parts_.rows.find(number);
  toRowMode();
  if (selected) {
    parts_.focus.SelectedRows.remove(row);
  } else {
    parts_.focus.SelectedRows.putFirst(row);
  }
  return true;
}

bool RowSelection::extendTo(RowNode* row) {
  const RowNode* const anchor = head();
  const bool downward = parts_.rows.isBefore(anchor, row);
  Numbers numbers;
  for (const RowNode* node = anchor; node;
       node = downward ? parts_.rows.NextRow(node) : parts_.rows.PreviousRow(node)) {
    numbers.push_back(node->row);
    if (node == row) break;
  }
  if (!flag(marked(), numbers)) return false;
  std::vector<RowNode*> nodes;
  nodes.reserve(numbers.size());
  for (const std::int32_t number : numbers) nodes.push_back(parts_.rows.find(number));
  parts_.focus.SelectedRows.assign(std::move(nodes));
  return true;
}

bool RowSelection::follow(RowNode* row) {
  FocusModel& focus = parts_.focus;
  if (row && !focus.CellMode) return followInRowMode(row);
  if (row && row != focus.FocusRow && !markOnly(row)) return false;
  if (!row && !flag(marked(), {})) return false;
  focus.FocusRow = row;
  if (!row) focus.SelectedRows.clear();
  return true;
}

bool RowSelection::followInRowMode(RowNode* row) {
  FocusModel& focus = parts_.focus;
  const std::int32_t number = row->row;
  if (!flag(head() && head() != row ? Numbers{head()->row} : Numbers{}, {number})) return false;
  if (!focus.SelectedRows.empty()) focus.SelectedRows.erase(focus.SelectedRows.begin());
  focus.putFirst(parts_.rows.find(number));
  return true;
}

template <class NewNumber>
void RowSelection::renumber(NewNumber newNumber) {
  FocusModel& focus = parts_.focus;
  if (focus.FocusRow) focus.FocusRow = parts_.rows.find(newNumber(focus.FocusRow->row));
  if (focus.SelectedRows.empty()) return;
  std::vector<RowNode*> nodes;
  nodes.reserve(focus.SelectedRows.size());
  for (const RowNode* row : focus.SelectedRows) {
    if (RowNode* node = parts_.rows.find(newNumber(row->row))) nodes.push_back(node);
  }
  focus.SelectedRows.assign(std::move(nodes));
}

void RowSelection::rowInserted(std::int32_t row) {
  renumber([row](std::int32_t number) { return number >= row ? number + 1 : number; });
}

void RowSelection::rowDeleted(std::int32_t row) {
  renumber([row](std::int32_t number) { return number == row ? 0 : number > row ? number - 1 : number; });
}

void RowSelection::rowsCut(std::int32_t count) {
  const FocusModel& focus = parts_.focus;
  const bool lost = focus.CellMode ? focus.FocusRow != nullptr : !focus.SelectedRows.empty();
  renumber([count](std::int32_t number) { return number <= count ? number : 0; });
  if (lost && marked().empty()) follow(parts_.rows.lastDisplayable());
}

}  // namespace tessera
