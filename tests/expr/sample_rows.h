// The rows, the time and the ways to evaluate that the tests of the expression language share.

#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "expr/expression_engine.h"
#include "expr/literal_text.h"
#include "shared/compare.h"
#include "shared/utf.h"

namespace tessera::test {

// Three rows of a name, a region and an amount, the first two of which are a group. The second one is
// changed.
class SampleRows : public ExpressionHost {
 public:
  static constexpr std::int32_t rowCount = 3;

  std::vector<XString> columns = {u"NAME", u"REGION", u"AMOUNT"};
  // The names that ColumnIndex() was asked for.
  mutable std::vector<std::string> asked;

  std::int32_t ColumnIndex(const XString& name) const override {
    asked.push_back(name.toUtf8());
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (equalNoCase(columns[i], name)) return static_cast<std::int32_t>(i) + 1;
    }
    return -1;
  }

  HResult ColumnValue(std::int32_t row, std::int32_t column, XValue& result) const override {
    static constexpr std::array<const char16_t*, rowCount> names = {u"Ann", u"Kim", u"Lee"};
    static constexpr std::array<const char16_t*, rowCount> regions = {u"North", u"North", u"South"};
    result.setEmpty();
    if (row < 1 || row > rowCount) return S_OK;
    const auto index = static_cast<std::size_t>(row - 1);
    if (column == 1) result.setText(names[index]);
    if (column == 2) result.setText(regions[index]);
    if (column == 3) result.setDouble(amount(row));
    if (column >= 4 && column < 4 + static_cast<std::int32_t>(extra.size())) {
      result = extra[static_cast<std::size_t>(column - 4)];
    }
    return S_OK;
  }

  HResult KeywordValue(std::int32_t current, std::int32_t index, XValue& result) const override {
    if (index < 0 || index > 9) return E_NOTIMPL;
    const std::array<double, 8> numbers = {
        0,        double(current), 1, rowCount, double(current % rowCount + 1), double(current - 1),
        rowCount, rowCount};
    if (index < 8) {
      result.setDouble(numbers[static_cast<std::size_t>(index)]);
    } else {
      result.setText(current == 2 ? u"U" : u"N");
    }
    return S_OK;
  }

  HResult AggregateValue(std::int32_t current, Aggregate kind, const XString& columnName, std::int32_t,
                         XValue& result) const override {
    const bool ofGroup = kind >= Aggregate::GroupAverage && kind <= Aggregate::GroupSum;
    const std::int32_t first = ofGroup && current == 3 ? 3 : 1;
    const std::int32_t last = ofGroup && current < 3 ? 2 : 3;
    const bool isCount = kind == Aggregate::GroupCount || kind == Aggregate::GroupRealCount;
    if (!isCount && !equalNoCase(columnName, u"AMOUNT")) return E_INVALIDARG;
    result.setDouble(summed(kind, first, last));
    return S_OK;
  }

  // Further columns, from number 4 on, with the same value in every row.
  void addColumn(const XString& name, const XValue& value) {
    columns.push_back(name);
    extra.push_back(value);
  }

 private:
  static double amount(std::int32_t row) {
    static constexpr std::array<double, rowCount> amounts = {100, 250, 40};
    return amounts[static_cast<std::size_t>(row - 1)];
  }
  static double summed(Aggregate kind, std::int32_t first, std::int32_t last) {
    double sum = 0;
    double least = amount(first);
    double most = least;
    for (std::int32_t row = first; row <= last; ++row) {
      sum += amount(row);
      least = std::min(least, amount(row));
      most = std::max(most, amount(row));
    }
    switch (kind) {
      case Aggregate::Average:
      case Aggregate::GroupAverage:
        return sum / (last - first + 1);
      case Aggregate::Max:
      case Aggregate::GroupMax:
        return most;
      case Aggregate::Min:
      case Aggregate::GroupMin:
        return least;
      case Aggregate::Sum:
      case Aggregate::GroupSum:
        return sum;
      default:
        return last - first + 1;
    }
  }

  std::vector<XValue> extra;
};

// Saturday, 9 March 2024, 14:30:05.
class SampleClock : public Clock {
 public:
  double now() const override { return 45360 + 52205 / 86400.0; }
};

// An engine over the sample rows, whose column names it knows.
class SampleEngine {
 public:
  SampleEngine() {
    engine.setHost(rows);
    engine.setPlace(nullptr, &clock);
    state.ExprRow = 2;
    loadColumns();
  }

  void addColumn(const XString& name, const XValue& value) {
    rows.addColumn(name, value);
    loadColumns();
  }

  // The value as literalText() writes it; the messages of a text that does not compile, one a line; "! " and
  // the message of a run that fails.
  std::string evaluate(std::string_view text) { return evaluateWide(utf16FromUtf8(text)); }
  std::string evaluateWide(std::u16string_view text) {
    const XExprProgram* program = engine.compile(text);
    if (!program) return messages();
    if (const XValue* value = program->evaluate(state)) return literalText(*value);
    return "! " + state.error->message().toUtf8();
  }

  SampleRows rows;
  SampleClock clock;
  ExpressionEngine engine;
  EvalState state;

 private:
  void loadColumns() {
    engine.clearColumnNames();
    for (const XString& name : rows.columns) engine.addColumnName(name);
  }
  std::string messages() const {
    std::string all;
    for (const XExprError& error : engine.errors()) all += error.text.toUtf8();
    return all;
  }
};

}  // namespace tessera::test
