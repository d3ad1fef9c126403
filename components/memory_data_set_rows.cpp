// Rows that come, go and change places.

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>

#include "components/memory_data_set.h"

namespace tessera {

// Sorts the rows by the sort text and makes the subtotal rows; false, and nothing done, when it names a
// column that does not exist.
bool MemoryDataSet::arrange() {
  auto keys = parseSortKeys(sortExpr_.view(), store_);
  if (!keys) return false;
  std::vector<std::int32_t> records;
  records.reserve(static_cast<std::size_t>(order_.count()));
  for (std::int32_t row = 0; row < order_.count(); ++row)
    if (order_.at(row) >= 0) records.push_back(order_.at(row));
  if (keys->empty())
    std::sort(records.begin(), records.end());
  else if (levelColumn_ >= 0)
    sortBetweenSummaries(records, *keys);
  else
    sortRecords(records, withGroupKeys(std::move(*keys)), store_);
  const bool moved = !hasOrder(records);
  order_.assign(std::move(records));
  if (moved) reordered_ = !baseIsAsLoaded_ || !standsAsLoaded();
  if (subtotals_.active()) subtotals_.build(store_, order_);
  return true;
}

bool MemoryDataSet::hasOrder(const std::vector<std::int32_t>& records) const {
  auto record = records.begin();
  for (std::int32_t row = 0; row < order_.count(); ++row) {
    const std::int32_t entry = order_.at(row);
    if (entry >= 0 && entry != *record++) return false;
  }
  return true;
}

// Groups stay whole: their columns lead, in the direction that the sort text gives them.
std::vector<SortKey> MemoryDataSet::withGroupKeys(std::vector<SortKey> keys) const {
  std::vector<SortKey> all;
  for (const GroupKey& group : subtotals_.keys()) {
    const auto given = std::find_if(keys.begin(), keys.end(),
                                    [&](const SortKey& key) { return key.column == group.column; });
    all.push_back({group.column, given != keys.end() && given->descending});
  }
  all.insert(all.end(), keys.begin(), keys.end());
  return all;
}

void MemoryDataSet::sortBetweenSummaries(std::vector<std::int32_t>& records,
                                         const std::vector<SortKey>& keys) const {
  const DataRows rows = dataRows();
  const auto isSummaryRecord = [&](std::int32_t record) { return rows.levelOf(record) > 0; };
  for (auto from = records.begin(); from != records.end();) {
    const auto to = std::find_if(from, records.end(), isSummaryRecord);
    sortRecords({from, to}, keys, store_);
    from = to == records.end() ? to : to + 1;
  }
}

bool MemoryDataSet::standsAsLoaded() const {
  std::int32_t last = -1;
  for (std::int32_t row = 0; row < order_.count() && !order_.isIdentity(); ++row) {
    const std::int32_t entry = order_.at(row);
    if (entry >= 0 && entry < last) return false;
    last = std::max(last, entry);
  }
  return true;
}

MemoryDataSet::Anchor MemoryDataSet::anchorOfCurrent() const {
  if (!hasRow(current_)) return {};
  const std::int32_t entry = entryAt(current_);
  if (entry >= 0) return {entry, 0};
  return {subtotals_.keyRecord(current_ - 1, -entry), -entry};
}

// After the rows changed places: finds the current one again and tells everybody.
void MemoryDataSet::resetRows(const Anchor& anchor) {
  const std::int32_t before = current_;
  std::int32_t row = anchor.record < 0 ? -1 : order_.rowOf(anchor.record);
  if (row >= 0 && anchor.depth > 0 && subtotals_.active()) row = subtotals_.subtotalAfter(row, anchor.depth);
  current_ = row >= 0 ? row + 1 : std::min(before, order_.count());
  rowNumbersChanged();
  notifier_.rowsReset();
  if (current_ != before) notifier_.currentRowChanged(current_);
}

void MemoryDataSet::ApplySort() {
  const Anchor anchor = anchorOfCurrent();
  if (arrange()) resetRows(anchor);
}

void MemoryDataSet::CommitRows() {
  if (!subtotals_.active()) return;
  const Anchor anchor = anchorOfCurrent();
  subtotals_.build(store_, order_);
  resetRows(anchor);
}

void MemoryDataSet::setSubsumExpr(const std::string& text) {
  const Anchor anchor = anchorOfCurrent();
  options_.subsum = text;
  readSubsum();
  // Without keys both take the old subtotal rows out.
  if (sortExpr_.empty() || !arrange()) subtotals_.build(store_, order_);
  resetRows(anchor);
}

void MemoryDataSet::addRow(std::int32_t place, std::int32_t record) {
  const bool last = place == order_.count();
  order_.insert(place, record);
  flags_.setStatus(record, rowInserted);
  if (subtotals_.active()) subtotals_.rowInserted(place);
  ++revision_;
  if (!last) return rowNumbersChanged();
  for (auto& find : finds_)
    if (find) find->afterChange(place);
}

std::int32_t MemoryDataSet::InsertRow(std::int32_t row) {
  if (!notifier_.canChange(row) || order_.count() == std::numeric_limits<std::int32_t>::max()) return 0;
  const std::int32_t record = store_.newRecord();
  if (record < 0) return 0;
  const std::int32_t place = std::clamp(row, 1, order_.count() + 1) - 1;
  addRow(place, record);
  current_ = place + 1;
  notifier_.rowInserted(place + 1);
  notifier_.currentRowChanged(current_);
  return place + 1;
}

void MemoryDataSet::appendRows(std::int32_t count) {
  const std::int32_t before = order_.count();
  for (; count > 0 && order_.count() < std::numeric_limits<std::int32_t>::max(); --count) {
    const std::int32_t record = store_.newRecord();
    if (record < 0) break;
    addRow(order_.count(), record);
  }
  if (order_.count() == before) return;
  if (current_ == 0) current_ = 1;
  notifier_.rowsAdded(order_.count());
}

void MemoryDataSet::DeleteRow(std::int32_t row) {
  const auto isDeletable = [&] {
    return hasRow(row) && entryAt(row) >= 0 && flags_.status(entryAt(row)) != rowDeleted;
  };
  if (!isDeletable() || !notifier_.canChange(row)) return;
  if (!isDeletable()) return;  // whoever was asked may have removed the row
  const std::int32_t record = entryAt(row);
  if (!keepDeleted_ || flags_.status(record) == rowInserted) return removeRow(row - 1);
  flags_.setStatus(record, rowDeleted);
  if (subtotals_.active()) subtotals_.rowChanged(row - 1);
  ++revision_;
  notifier_.rowDeleted(row);
}

void MemoryDataSet::removeRow(std::int32_t place) {
  const std::int32_t record = order_.at(place);
  const bool known = flags_.status(record) != rowInserted;
  order_.erase(place);
  flags_.setStatus(record, known ? rowGone : rowNormal);
  flags_.select(record, false);
  std::int32_t removed = 1;
  if (subtotals_.active()) removed += subtotals_.rowErased(place, record, order_);
  if (!known) store_.releaseRecord(record);
  rowNumbersChanged();

  const bool moved = current_ > place;
  if (current_ > place + removed)
    current_ -= removed;
  else if (moved)
    current_ = std::min(place + 1, order_.count());
  for (std::int32_t i = removed; i > 0; --i) notifier_.rowDeleted(place + i);
  // Group trees do not follow single rows.
  if (subtotals_.active()) notifier_.rowsReset();
  if (moved) notifier_.currentRowChanged(current_);
}

void MemoryDataSet::acceptChanges() {
  reordered_ = false;
  baseIsAsLoaded_ = standsAsLoaded();
  if (!isModified()) return;
  Anchor anchor = anchorOfCurrent();
  if (anchor.record >= 0 && flags_.status(anchor.record) == rowDeleted) anchor = {};
  std::vector<std::int32_t> kept;
  for (std::int32_t row = 0; row < order_.count(); ++row) {
    const std::int32_t entry = order_.at(row);
    if (entry < 0 || flags_.status(entry) != rowDeleted) kept.push_back(entry);
  }
  for (std::int32_t record = 0; record < store_.recordCount(); ++record) {
    const std::int32_t status = flags_.status(record);
    if (status != rowDeleted && status != rowGone) continue;
    flags_.select(record, false);
    store_.releaseRecord(record);
  }
  order_.assign(std::move(kept));
  flags_.clearStatus();
  for (std::int32_t c = 0; c < store_.allColumnCount(); ++c) store_.column(c).clearMarks();
  if (subtotals_.active()) subtotals_.build(store_, order_);
  resetRows(anchor);
}

}  // namespace tessera
