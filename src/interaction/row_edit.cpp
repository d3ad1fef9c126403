#include "interaction/row_edit.h"

#include <algorithm>

#include "interaction/reading_scope.h"
#include "interaction/row_numbers.h"

namespace tessera {

// Rows that others changed since they were arranged are arranged first: numbers must name what they show.
RowEdit::RowEdit(GridParts& parts, GridServices& services, EditorController& editors)
    : parts_(parts), services_(services), editors_(editors) {
  const ReadingScope reading(parts_, services_);
  const bool isGroup = parts_.config.tree.rowMode == RowMode::Group && !parts_.rows.isPlain();
  if (isGroup) groupStates_.emplace(parts_.rows, parts_.link, parts_.config.tree.expand);
  if (parts_.rowsStale || parts_.link.SelfMove()) rebuild();
  selfMove_.emplace(parts_.link);
  token_ = parts_.token();
  heard_ = parts_.echoes;
}

Row RowEdit::insert(Row row) {
  const std::int32_t known = parts_.rows.rowCount();
  const Row inserted{std::max(parts_.link.insertRow(row.number), 0)};
  if (!holds()) return noRow;
  if (inserted) ++expected_.inserted;
  if (parts_.rows.rowCount() != known) doubtful_ = true;
  return inserted;
}

std::int32_t RowEdit::erase(Row row) {
  const std::int32_t before = parts_.link.rowCount();
  parts_.link.deleteRow(row.number);
  const std::int32_t gone = holds() ? std::max(before - parts_.link.rowCount(), 0) : 0;
  expected_.deleted += static_cast<std::uint64_t>(gone);
  return gone;
}

void RowEdit::arrived(Row first, std::span<const std::int32_t> levels) {
  const RowsChanged change{first.number, static_cast<std::int32_t>(levels.size()), 0};
  const bool isArranged = parts_.config.tree.rowMode == RowMode::Plain || !parts_.rows.isPlain();
  if (doubtful_ || !isArranged || first.number > parts_.rows.rowCount() + 1) return happened(change);
  parts_.rows.insert(first, levels);
  note(change);
}

void RowEdit::left(Row top, Row first, std::int32_t count) {
  if (doubtful_) return happened({first.number, 0, count});
  const auto goes = [&](Row row) { return row.number >= first.number && row.number < first.number + count; };
  const auto& page = parts_.page.VisibleRows;
  if (std::all_of(page.begin(), page.end(), goes)) emptiedAt_ = parts_.rows.ordinal(top) - 1;
  parts_.rows.erase(first, count);
  note({first.number, 0, count});
}

void RowEdit::happened(const RowsChanged& change) {
  note(change);
  doubtful_ = true;
}

void RowEdit::checkLevel(Row row) {
  if (parts_.rows.find(row.number) && parts_.rowBuilder().levelOf(row) == parts_.rows.level(row)) return;
  doubtful_ = true;
}

void RowEdit::note(const RowsChanged& change) {
  renumberPage(change);
  renumberRows(parts_, editors_, change);
  for (FollowedRows* rows : followed_) rows->renumber(change);
  token_ = parts_.token();
}

void RowEdit::renumberPage(const RowsChanged& change) {
  auto& page = parts_.page.VisibleRows;
  std::transform(page.begin(), page.end(), page.begin(), change);
  std::erase(page, noRow);
}

// News of more than was asked for is somebody else's doing.
bool RowEdit::isAsTold() const {
  return !doubtful_ && parts_.rows.rowCount() == parts_.link.rowCount() &&
         parts_.echoes.inserted - heard_.inserted <= expected_.inserted &&
         parts_.echoes.deleted - heard_.deleted <= expected_.deleted && parts_.echoes.reset == heard_.reset;
}

void RowEdit::rebuild() {
  const ReadingScope reading(parts_, services_);
  parts_.rowsStale = false;
  doubtful_ = false;
  rebuilt_ = true;
  bool moved = parts_.config.tree.rowMode == RowMode::Plain;
  if (moved) {
    parts_.rows.buildPlain(parts_.link.rowCount());
  } else {
    const RowBuilder::Rebuilt rebuilt = parts_.rowBuilder().rebuild(groupStates_ ? &*groupStates_ : nullptr);
    moved = rebuilt.moved;
    error_ = rebuilt.error;
    parts_.rowsFit = !error_ || error_ == ErrorCode::TreeLevelValue;
  }
  if (!moved) return;
  dropPlaceless();
  token_ = parts_.token();
}

void RowEdit::dropPlaceless() {
  const RowTree& rows = parts_.rows;
  FocusModel& focus = parts_.focus;
  note(RowsChanged::cutTo(rows.rowCount()));
  focus.FocusRow = rows.find(focus.FocusRow.number);
  RowList placed;
  focus.SelectedRows.visitWhile([&](Row row) {
    if (rows.find(row.number)) placed.append(row);
    return true;
  });
  focus.SelectedRows = placed;
  std::erase_if(parts_.page.VisibleRows, [&rows](Row row) { return !rows.find(row.number); });
  refillPage();
}

void RowEdit::refillPage() {
  const RowTree& rows = parts_.rows;
  if (rows.empty()) return parts_.page.clear();
  Row top = parts_.page.VisibleAt(0);
  if (!top) top = rows.nth(std::clamp(emptiedAt_, 1, rows.displayCount()));
  parts_.page.RefillFrom(rows, parts_.frame().rowCapacity(), top);
}

bool RowEdit::finish() {
  const bool held = holds();
  if (parts_.link.dataSet() && !isAsTold()) rebuild();
  selfMove_.reset();
  refillPage();
  parts_.updateBars(bar_bit::vertical);
  const GridToken token = parts_.token();
  if (rebuilt_) services_.Repaint(nullptr);
  if (error_) services_.ReportError(*error_);
  return held && parts_.token() == token;
}

}  // namespace tessera
