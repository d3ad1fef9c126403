#include "control/grid_expression_host.h"

#include <algorithm>
#include <array>

#include "shared/change_type.h"

namespace tessera {
namespace {

using Row = std::int32_t;

// The answer of a data set to a question about one row.
template <void (DataSetControl::*question)(Row, std::int32_t&)>
std::int32_t ask(DataSetControl& rows, Row row) {
  std::int32_t answer = 0;
  (rows.*question)(row, answer);
  return answer;
}

std::int32_t rowCount(DataSetControl& rows) {
  std::int32_t count = 0;
  rows.GetRowCount(count);
  return count;
}

template <void (DataSetControl::*question)(Row, std::int32_t&)>
void readAnswer(DataSetControl& rows, Row current, XValue& result) {
  result.setDouble(ask<question>(rows, current));
}

template <std::int32_t step>
void readNeighbour(DataSetControl& rows, Row current, XValue& result) {
  std::int32_t neighbour = 0;
  rows.AdjacentRow(current, step, neighbour);
  result.setDouble(neighbour);
}

void readRow(DataSetControl&, Row current, XValue& result) { result.setDouble(current); }
void readFirst(DataSetControl& rows, Row, XValue& result) { result.setDouble(rowCount(rows) > 0 ? 1 : 0); }
void readCount(DataSetControl& rows, Row, XValue& result) { result.setDouble(rowCount(rows)); }

void readRealCount(DataSetControl& rows, Row, XValue& result) {
  std::int32_t count = 0;
  rows.RealCount(0, 0, count);
  result.setDouble(count);
}

template <void (DataSetControl::*question)(Row, std::int32_t&)>
void readStatus(DataSetControl& rows, Row current, XValue& result) {
  static constexpr std::array<const char16_t*, 5> letters = {u"N", u"I", u"D", u"U", u"L"};
  const std::int32_t status = ask<question>(rows, current);
  const bool known = status > 0 && status < static_cast<std::int32_t>(letters.size());
  result.setText(letters[known ? static_cast<std::size_t>(status) : 0]);
}

using KeywordReader = void (*)(DataSetControl& rows, Row current, XValue& result);

// In the order of exprKeywords.
constexpr std::array<KeywordReader, std::size(exprKeywords)> keywordReaders = {
    readAnswer<&DataSetControl::GetLevel>,
    readRow,
    readFirst,
    readCount,
    readNeighbour<1>,
    readNeighbour<-1>,
    readRealCount,
    readCount,
    readStatus<&DataSetControl::GetStatus>,
    readStatus<&DataSetControl::GetSysStatus>,
};

struct RowRange {
  Row from = 0;  // 0, 0: all rows
  Row to = 0;
};

using RangeReader = void (*)(DataSetControl& rows, std::int32_t column, RowRange range, XValue& result);

template <void (DataSetControl::*sum)(std::int32_t, Row, Row, XValue&)>
void readSum(DataSetControl& rows, std::int32_t column, RowRange range, XValue& result) {
  (rows.*sum)(column, range.from, range.to, result);
}

void readRangeLength(DataSetControl&, std::int32_t, RowRange range, XValue& result) {
  result.setDouble(static_cast<double>(range.to) - range.from + 1);
}

void readRealRows(DataSetControl& rows, std::int32_t, RowRange range, XValue& result) {
  std::int32_t count = 0;
  rows.RealCount(range.from, range.to, count);
  result.setDouble(count);
}

struct AggregateRow {
  bool ofGroup;
  RangeReader read;
};

// In the order of Aggregate, from 1.
constexpr AggregateRow aggregates[] = {
    {false, readSum<&DataSetControl::AverageRange>},
    {false, readSum<&DataSetControl::MaxRange>},
    {false, readSum<&DataSetControl::MinRange>},
    {true, readSum<&DataSetControl::AverageRange>},
    {true, readRangeLength},
    {true, readSum<&DataSetControl::MaxRange>},
    {true, readSum<&DataSetControl::MinRange>},
    {true, readRealRows},
    {true, readSum<&DataSetControl::SumRange>},
    {false, readSum<&DataSetControl::SumRange>},
};
static_assert(std::size(aggregates) == static_cast<std::size_t>(Aggregate::Sum));

RowRange groupAround(DataSetControl& rows, Row current) {
  const std::int32_t level = ask<&DataSetControl::GetLevel>(rows, current);
  RowRange range;
  rows.GroupStart(current, level, range.from);
  rows.GroupEnd(current, level, range.to);
  return range;
}

}  // namespace

std::int32_t GridExpressionHost::ColumnIndex(const XString& name) const {
  const auto rows = link_.holdDataSet();
  std::int32_t column = -1;
  if (rows) rows->GetColumnIndex(name, column);
  return column;
}

HResult GridExpressionHost::ColumnValue(std::int32_t row, std::int32_t column, XValue& result) const {
  const auto rows = link_.holdDataSet();  // a data set may let go of itself while it is asked
  if (!rows) return E_NOTIMPL;
  rows->GetValue(row, column, result);
  if (result.type() == VT_I4 || result.type() == VT_I8) {
    result.setDouble(static_cast<double>(result.asInt64()));
  } else if (result.type() == VT_R4) {
    result.setDouble(result.asDouble());
  }
  return S_OK;
}

HResult GridExpressionHost::KeywordValue(std::int32_t current, std::int32_t index, XValue& result) const {
  const auto rows = link_.holdDataSet();
  if (!rows || index < 0 || index >= static_cast<std::int32_t>(keywordReaders.size())) return E_NOTIMPL;
  keywordReaders[static_cast<std::size_t>(index)](*rows, current, result);
  return S_OK;
}

HResult GridExpressionHost::AggregateValue(std::int32_t current, Aggregate kind, const XString& columnName,
                                           std::int32_t, XValue& result) const {
  const auto rows = link_.holdDataSet();
  const auto number = static_cast<std::size_t>(kind);
  if (!rows || number < 1 || number > std::size(aggregates)) return E_NOTIMPL;
  const AggregateRow& aggregate = aggregates[number - 1];
  std::int32_t column = 0;
  rows->GetColumnIndex(columnName, column);
  const RowRange range = aggregate.ofGroup ? groupAround(*rows, current) : RowRange{};
  const auto known = std::find_if(sums_.begin(), sums_.end(), [&](const Sum& sum) {
    return sum.kind == kind && sum.column == column && sum.from == range.from && sum.to == range.to;
  });
  if (known != sums_.end()) {
    result.setDouble(known->value);
    return S_OK;
  }
  aggregate.read(*rows, column, range, result);
  if (!succeeded(changeType(result, VT_R8, result))) result.setDouble(0);
  if (passes_ > 0) sums_.push_back({kind, column, range.from, range.to, result.asDouble()});
  return S_OK;
}

void loadColumnNames(const DataLink& link, ExpressionEngine& engine) {
  engine.clearColumnNames();
  const auto rows = link.holdDataSet();
  std::int32_t count = 0;
  if (rows) rows->GetColumnCount(count);
  for (std::int32_t column = 1; column <= count; ++column) {
    XString name;
    rows->GetColumnName(column, name);
    engine.addColumnName(name);
  }
}

}  // namespace tessera
