// Groups of rows and the aggregates over them.

#include <algorithm>

#include "components/memory_data_set.h"

namespace tessera {

MemoryDataSet::Range MemoryDataSet::rangeOf(std::int32_t from, std::int32_t to) const {
  if (from == 0 && to == 0) return {0, order_.count()};
  return {std::max(from, 1) - 1, std::min(to, order_.count())};
}

void MemoryDataSet::compute(const AggregateQuery& query, XValue& result) const {
  const Range range = rangeOf(query.from, query.to);
  const DataRows rows = dataRows();
  if (query.kind == RangeFigure::count) {
    std::int32_t count = 0;
    rows.each(range.begin, range.end, [&](std::int32_t) { ++count; });
    return result.setInt(count);
  }
  const Column& column = store_.column(query.column - 1);
  if (query.kind == RangeFigure::greatest || query.kind == RangeFigure::least) {
    const std::int32_t record =
        extremeOf(rows, column, range.begin, range.end, query.kind == RangeFigure::greatest);
    return record < 0 ? result.setEmpty() : column.value(record, result);
  }
  const Total total = totalOf(rows, column, range.begin, range.end);
  if (query.kind == RangeFigure::sum) return total.value(column, result);
  if (total.count() == 0) return result.setEmpty();
  result.setDouble(withoutRoundingNoise(total.real() / static_cast<double>(total.count())));
}

const XValue& MemoryDataSet::aggregate(RangeFigure kind, std::int32_t column, std::int32_t from,
                                       std::int32_t to) {
  const AggregateQuery query{kind, column, from, to};
  if (kind != RangeFigure::count && !hasColumn(column)) {
    scratch_.setEmpty();
    return scratch_;
  }
  return aggregates_.answer(query, revision_, [&](XValue& result) { compute(query, result); });
}

void MemoryDataSet::SumRange(std::int32_t column, std::int32_t from, std::int32_t to, XValue& value) {
  value = aggregate(RangeFigure::sum, column, from, to);
}

void MemoryDataSet::MaxRange(std::int32_t column, std::int32_t from, std::int32_t to, XValue& value) {
  value = aggregate(RangeFigure::greatest, column, from, to);
}

void MemoryDataSet::MinRange(std::int32_t column, std::int32_t from, std::int32_t to, XValue& value) {
  value = aggregate(RangeFigure::least, column, from, to);
}

void MemoryDataSet::AverageRange(std::int32_t column, std::int32_t from, std::int32_t to, XValue& value) {
  value = aggregate(RangeFigure::average, column, from, to);
}

void MemoryDataSet::RealCount(std::int32_t from, std::int32_t to, std::int32_t& count) {
  count = aggregate(RangeFigure::count, 0, from, to).asInt();
}

// Whether the summary row in `row` (from 0) ends groups of `level`: it is of that level or an outer one. A
// group of level 0 ends at any. Without a subsum text the greater level is the outer one.
bool MemoryDataSet::closesGroup(std::int32_t row, std::int32_t level) const {
  const std::int32_t other = levelAt(row + 1);
  if (other <= 0) return false;
  if (groupKeys_.empty()) return other >= level;
  const auto depthOf = [&](std::int32_t wanted) {
    return std::find_if(groupKeys_.begin(), groupKeys_.end(),
                        [=](const GroupKey& key) { return key.level == wanted; });
  };
  if (depthOf(other) == groupKeys_.end()) return false;
  return level == 0 || depthOf(other) <= depthOf(level);
}

// The rows of the group, trimmed to its first and last data row; nothing between them for a group without.
MemoryDataSet::Range MemoryDataSet::groupAround(std::int32_t row, std::int32_t level) const {
  Range group{0, order_.count()};
  if (subtotals_.active()) {
    const auto innermost = static_cast<std::int32_t>(subtotals_.keys().size());
    const std::int32_t depth = level > 0 ? subtotals_.depthOfLevel(level) : innermost;
    const std::int32_t end = subtotals_.subtotalAfter(row - 1, depth);
    if (end >= 0) group.end = end;
    group.begin = subtotals_.subtotalBefore(group.end, depth) + 1;
  } else if (levelColumn_ >= 0) {
    group.end = row - 1;
    while (group.end < order_.count() && !closesGroup(group.end, level)) ++group.end;
    group.begin = std::min(group.end, row - 1);
    while (group.begin > 0 && !closesGroup(group.begin - 1, level)) --group.begin;
  }
  while (group.begin < group.end && isSummary(group.begin + 1)) ++group.begin;
  while (group.end > group.begin && isSummary(group.end)) --group.end;
  return group;
}

void MemoryDataSet::GroupStart(std::int32_t row, std::int32_t level, std::int32_t& result) {
  result = hasRow(row) ? groupAround(row, level).begin + 1 : 0;
}

void MemoryDataSet::GroupEnd(std::int32_t row, std::int32_t level, std::int32_t& result) {
  result = hasRow(row) ? groupAround(row, level).end : 0;
}

void MemoryDataSet::AdjacentRow(std::int32_t row, std::int32_t step, std::int32_t& result) {
  result = 0;
  if (step != 1 && step != -1) return;
  // Past the first and the last row nothing is adjacent but these themselves.
  if (row < 0 || row > order_.count() + 1) return;
  for (std::int32_t next = row + step; hasRow(next); next += step) {
    if (isSummary(next)) continue;
    result = next;
    return;
  }
}

}  // namespace tessera
