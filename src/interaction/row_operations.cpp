#include "interaction/row_operations.h"

#include <algorithm>

#include "interaction/row_copy.h"
#include "interaction/row_insert.h"
#include "interaction/row_removal.h"
#include "interaction/row_select.h"

namespace tessera {

// What is being read must stay.
bool RowOperations::endEdit() { return parts_.readings == 0 && editors_.commitBeforeMove(); }

bool RowOperations::hasRow(std::int32_t number) const {
  return hasRows() && number >= 0 && number <= parts_.link.rowCount() && parts_.link.rowCount() > 0;
}

bool RowOperations::mayInsert(std::int32_t index, std::int32_t option) const {
  if (!hasRows() || option < 0) return false;
  const auto place = static_cast<InsertPlace>(option);
  const bool atEnd = place == InsertPlace::First || place == InsertPlace::Last;
  if (index < 0 && !atEnd) return false;
  switch (mode()) {
    case RowMode::Plain:
      return place <= InsertPlace::Last;
    case RowMode::Tree:
      return place <= InsertPlace::FirstChild && (atEnd || parts_.rows.find(index));
    case RowMode::Group:
      return place <= InsertPlace::Before && parts_.rows.find(index);
  }
  return false;
}

void RowOperations::Insert(std::int32_t index, std::int32_t option, const XString& value) {
  if (!mayInsert(index, option) || !endEdit() || !mayInsert(index, option)) return;
  const std::vector<RowPair> pairs = parseRowPairs(value);
  const auto place = static_cast<InsertPlace>(option);
  if (mode() == RowMode::Plain) return insertPlain(index, place, pairs);
  RowEdit edit(parts_, services_, editors_);
  if (!mayInsert(index, option)) return void(edit.finish());
  const bool atEnd = place == InsertPlace::First || place == InsertPlace::Last;
  const Row beside = atEnd ? noRow : parts_.rows.find(index);
  RowInsert insert(parts_, edit, pairs);
  const bool came = mode() == RowMode::Tree ? insert.intoTree(beside, place)
                                            : insert.intoGroups(beside, place == InsertPlace::Behind);
  if (edit.finish() && came) showCurrentRow_(parts_.link.currentRow());
}

// The row comes as the data set tells of it.
void RowOperations::insertPlain(std::int32_t index, InsertPlace place, const std::vector<RowPair>& pairs) {
  std::int32_t row = 1;
  if (place == InsertPlace::Behind) row = addClamped(index, 1);
  if (place == InsertPlace::Before) row = index;
  if (place == InsertPlace::Last) row = addClamped(parts_.link.rowCount(), 1);
  const std::uint64_t binding = parts_.link.binding();
  row = parts_.link.insertRow(row);
  if (row < 1 || parts_.link.binding() != binding) return;
  const GridWatch watch(parts_, services_);
  for (const RowPair& pair : pairs) {
    if (watch.holds()) parts_.link.setTextByName(row, pair.name, pair.text);
  }
}

// The rows that a call means. A row goes with what stands below it, so one that stands below another is none.
std::vector<Row> RowOperations::candidates(std::int32_t index) const {
  const FocusModel& focus = parts_.focus;
  std::vector<Row> rows;
  if (!isSelection(index)) {
    const Row row = index > 0 ? parts_.rows.find(index) : focus.FocusRow;
    if (row) rows.push_back(row);
    return rows;
  }
  focus.SelectedRows.visitWhile([&](Row row) {
    Row above = parts_.rows.parent(row);
    while (above && !focus.SelectedRows.holds(above)) above = parts_.rows.parent(above);
    if (!above) rows.push_back(row);
    return true;
  });
  return rows;
}

void RowOperations::Delete(std::int32_t index) {
  if (!hasRow(index) || !endEdit() || !hasRow(index)) return;
  RowEdit edit(parts_, services_, editors_);
  FollowedRows rows(candidates(index));
  if (rows.size() == 0) return void(edit.finish());
  if (isSelection(index)) parts_.focus.SelectedRows.clear();  // the data set's flags tell what is left of it
  RowRemoval removal(parts_, edit, parts_.link.keepDeleted());
  edit.follow(rows);
  for (std::size_t place = 0; place < rows.size() && edit.holds(); ++place) {
    if (const Row row = parts_.rows.find(rows.at(place).number)) removal.remove(row);
  }
  edit.unfollow();
  if (edit.finish()) takeCurrentRow();
  services_.Repaint(nullptr);
}

void RowOperations::takeCurrentRow() {
  const GridFrame frame = parts_.frame();
  if (!parts_.focus.CellMode) parts_.loader(frame).rebuildSelectedRows();
  const Row current = parts_.rows.find(parts_.link.currentRow());
  // Without a current row what is selected stays so.
  if (current || parts_.focus.CellMode) RowSelection(parts_, services_).follow(current);
}

bool RowOperations::mayMove(std::int32_t source, std::int32_t target, std::int32_t option) const {
  if (mode() == RowMode::Plain || !hasRow(source) || !hasRow(target)) return false;
  const Row row = parts_.rows.find(target);
  if (mode() == RowMode::Tree) return row && (option == 0 || option == 4);
  return row && parts_.rows.state(row) == RowState::Leaf;
}

void RowOperations::Move(std::int32_t source, std::int32_t target, std::int32_t option) {
  if (!mayMove(source, target, option) || !endEdit() || !mayMove(source, target, option)) return;
  RowEdit edit(parts_, services_, editors_);
  if (!mayMove(source, target, option)) return void(edit.finish());
  std::vector<Row> rows = candidates(source);
  std::reverse(rows.begin(), rows.end());
  const Row goal = parts_.rows.find(target);
  const bool several = isSelection(source);
  const bool stays = rows.empty() || (!several && isWithin(goal, rows.front()));
  if (several) parts_.focus.SelectedRows.clear();  // the data set's flags tell what is left of it
  const Row shown = stays ? noRow : moveAll(edit, rows, goal, option);
  if (!edit.finish()) return;
  if (shown) {
    if (several) parts_.focus.SelectedRows.assign(shown);
    showMoved(shown);
  } else if (several) {
    takeCurrentRow();
  }
}

bool RowOperations::isWithin(Row row, Row top) const {
  return row == top || parts_.rows.isAncestor(row, top);
}

// Gives the row that was moved last, or was looked at last and stays; noRow when nothing is to be shown.
Row RowOperations::moveAll(RowEdit& edit, const std::vector<Row>& rows, Row target, std::int32_t option) {
  const auto place =
      mode() == RowMode::Tree && option == 4 ? RowCopy::Place::FirstChild : RowCopy::Place::Behind;
  RowCopy copier(parts_, edit);
  RowRemoval removal(parts_, edit, parts_.link.keepDeleted());
  FollowedRows sources(rows), goal({target});
  edit.follow(sources);
  edit.follow(goal);
  Row last = noRow;
  for (std::size_t index = 0; index < rows.size() && edit.holds(); ++index) {
    const Row source = parts_.rows.find(sources.at(index).number);
    const Row beside = parts_.rows.find(goal.at(0).number);
    if (!source || !beside) continue;
    if (mode() == RowMode::Group && parts_.rows.subtree(source).count > 1) break;
    last = source;
    if (isWithin(beside, source)) continue;
    const Row copy = copier.copy(source, beside, place);
    if (!copy) continue;
    FollowedRows copies({copy});
    edit.follow(copies);
    if (const Row left = parts_.rows.find(sources.at(index).number)) removal.remove(left);
    edit.unfollow();
    last = copies.at(0);
  }
  edit.unfollow();
  edit.unfollow();
  return last;
}

void RowOperations::showMoved(Row row) {
  const GridWatch watch(parts_, services_);
  showCurrentRow_(row.number);
  if (watch.holds()) parts_.link.syncCurrentRow(row.number);
  if (!watch.holds() || parts_.focus.CellMode) return;
  const GridFrame frame = parts_.frame();
  parts_.loader(frame).rebuildSelectedRows();
}

}  // namespace tessera
