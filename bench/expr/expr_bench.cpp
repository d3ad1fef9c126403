// Five expressions over a million rows: this engine, Lua and muParser side by side.

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <fmt/format.h>
#include <string>
#include <vector>

#include "bench/expr/peer.h"
#include "expr/expression_engine.h"
#include "shared/compare.h"

namespace tessera::bench {
namespace {

constexpr std::int32_t rowCount = 1'000'000;
constexpr int rounds = 7;  // of each engine, by turns, so that a busy machine is busy for all

BenchRow rowAt(std::int32_t row) {
  static constexpr const char* regions[] = {"North", "South", "East", "West"};
  return {static_cast<double>(row % 200), static_cast<double>(row % 37) / 4, regions[row % 4]};
}

// The rows as a host: what it does for a value is next to nothing.
class BenchRows : public ExpressionHost {
 public:
  BenchRows() {
    for (std::int32_t row = 0; row < 4; ++row) regions_[row] = XString::fromNarrow(rowAt(row).region);
  }
  std::int32_t ColumnIndex(const XString& name) const override {
    return equalNoCase(name, u"AMOUNT") ? 1 : equalNoCase(name, u"PRICE") ? 2 : 3;
  }
  HResult ColumnValue(std::int32_t row, std::int32_t column, XValue& result) const override {
    if (column == 3) {
      result.setText(regions_[row % 4].view());
    } else {
      const BenchRow values = rowAt(row);
      result.setDouble(column == 1 ? values.amount : values.price);
    }
    return S_OK;
  }
  HResult KeywordValue(std::int32_t, std::int32_t, XValue&) const override { return E_NOTIMPL; }
  HResult AggregateValue(std::int32_t, Aggregate, const XString&, std::int32_t, XValue&) const override {
    return E_NOTIMPL;
  }

 private:
  XString regions_[4];
};

double asNumber(const XValue& value) {
  if (value.type() == VT_BSTR) return value.asText().length();
  return value.type() == VT_BOOL ? value.asBool() : value.asDouble();
}

struct Measure {
  double nanoseconds = 0;  // a row, the best round
  double sum = 0;          // of the values, to hold the engines against each other
};

template <class Evaluate>
void measureRound(Measure& best, Evaluate evaluate) {
  const auto start = std::chrono::steady_clock::now();
  double sum = 0;
  for (std::int32_t row = 1; row <= rowCount; ++row) sum += evaluate(row);
  const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - start;
  const double each = time.count() / rowCount;
  if (best.nanoseconds == 0 || each < best.nanoseconds) best = {each, sum};
}

struct BenchCase {
  const char16_t* text;
  const char* lua;
  const char* muParser;  // null: it has no texts
};

// The first one has a budget beside Lua's time.
constexpr BenchCase cases[] = {
    {u"IIF(AMOUNT>100,\"red\",\"black\")", "AMOUNT>100 and \"red\" or \"black\"", nullptr},
    {u"AMOUNT*PRICE+(AMOUNT+1)**0.5", "AMOUNT*PRICE+(AMOUNT+1)^0.5", "AMOUNT*PRICE+(AMOUNT+1)^0.5"},
    {u"(AMOUNT>100) AND (PRICE<4)", "AMOUNT>100 and PRICE<4", "AMOUNT>100 && PRICE<4"},
    {u"IIF(REGION=\"North\",AMOUNT,PRICE)", "REGION==\"North\" and AMOUNT or PRICE", nullptr},
    {u"LEFT(REGION,2)+\"-\"+UPPER(REGION)", "string.sub(REGION,1,2)..\"-\"..string.upper(REGION)", nullptr},
};
constexpr double budget = 150;  // nanoseconds a row of the first case, without the rows' own time
constexpr double noise = 1.1;   // what two measures of the same may differ by

class Bench {
 public:
  Bench() {
    engine_.setHost(rows_);
    for (const char16_t* name : {u"AMOUNT", u"PRICE", u"REGION"}) engine_.addColumnName(name);
  }

  bool run() {
    fmt::print("{:<40} {:>10} {:>10} {:>10}\n", "nanoseconds a row", "Tessera", "Lua", "muParser");
    for (const BenchCase& row : cases) runCase(row, &row == &cases[0]);
    return passed_;
  }

 private:
  void runCase(const BenchCase& row, bool hasBudget) {
    const XExprProgram* program = engine_.compile(row.text);
    const bool hasMuParser = row.muParser != nullptr;
    const bool compiles =
        program && lua_->prepare(row.lua) && (!hasMuParser || muParser_->prepare(row.muParser));
    check(compiles, "an engine refuses its expression");
    if (!compiles) return;
    Measure own;
    Measure lua;
    Measure muParser;
    for (int round = 0; round < rounds; ++round) {
      measureOwn(own, *program);
      measurePeer(lua, *lua_);
      if (hasMuParser) measurePeer(muParser, *muParser_);
    }
    fmt::print("{:<40} {:>10.1f} {:>10.1f} {:>10}\n", XString(row.text).toUtf8(), own.nanoseconds,
               lua.nanoseconds, hasMuParser ? fmt::format("{:.1f}", muParser.nanoseconds) : "-");
    check(lua.sum == own.sum, "Lua computes something else");
    if (hasMuParser) check(muParser.sum == own.sum, "muParser computes something else");
    check(!hasBudget || own.nanoseconds < budget, "over the budget");
    check(own.nanoseconds <= lua.nanoseconds * noise, "slower than Lua");
  }

  void measureOwn(Measure& best, const XExprProgram& program) {
    EvalState state;
    measureRound(best, [&](std::int32_t row) {
      state.ExprRow = row;
      const XValue* value = program.evaluate(state);
      return value ? asNumber(*value) : std::nan("");
    });
  }

  void measurePeer(Measure& best, Peer& peer) {
    measureRound(best, [&](std::int32_t row) { return peer.evaluate(rowAt(row)); });
  }

  void check(bool holds, const char* complaint) {
    if (!holds) fmt::print("FAILED: {}\n", complaint);
    passed_ = passed_ && holds;
  }

  BenchRows rows_;
  ExpressionEngine engine_;
  std::unique_ptr<Peer> lua_ = makeLuaPeer();
  std::unique_ptr<Peer> muParser_ = makeMuParserPeer();
  bool passed_ = true;
};

}  // namespace
}  // namespace tessera::bench

int main() { return tessera::bench::Bench().run() ? EXIT_SUCCESS : EXIT_FAILURE; }
