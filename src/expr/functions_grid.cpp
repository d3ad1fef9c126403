// Functions that ask the grid.

#include "expr/function_handlers.h"

namespace tessera::expr_function {
namespace {

constexpr std::int32_t currentRow = -1;  // as the row of a cell
constexpr std::int32_t ownLevel = -1;    // the level of the row under evaluation

template <Aggregate kind>
const XValue* aggregate(ExprCall& call) {
  static const XString noColumn;
  const XString& name = call.count() > 0 ? call.value(0).asText() : noColumn;
  const std::int32_t level = call.count() > 1 ? call.integer(1) : ownLevel;
  return call.giveFromHost([&](XValue& result) {
    return call.context().host->AggregateValue(call.row(), kind, name, level, result);
  });
}

}  // namespace

const XValue* colVal(ExprCall& call) {
  const std::int32_t row = call.integer(1);
  return call.giveFromHost([&](XValue& result) {
    return call.context().host->ColumnValue(row == currentRow ? call.row() : row, call.integer(0), result);
  });
}

const XValue* keyword(ExprCall& call) {
  return call.giveFromHost(
      [&](XValue& result) { return call.context().host->KeywordValue(call.row(), call.integer(0), result); });
}

const XValue* gfAvg(ExprCall& call) { return aggregate<Aggregate::Average>(call); }
const XValue* gfMax(ExprCall& call) { return aggregate<Aggregate::Max>(call); }
const XValue* gfMin(ExprCall& call) { return aggregate<Aggregate::Min>(call); }
const XValue* gfSum(ExprCall& call) { return aggregate<Aggregate::Sum>(call); }
const XValue* gfSubAvg(ExprCall& call) { return aggregate<Aggregate::GroupAverage>(call); }
const XValue* gfSubCount(ExprCall& call) { return aggregate<Aggregate::GroupCount>(call); }
const XValue* gfSubMax(ExprCall& call) { return aggregate<Aggregate::GroupMax>(call); }
const XValue* gfSubMin(ExprCall& call) { return aggregate<Aggregate::GroupMin>(call); }
const XValue* gfSubRealCount(ExprCall& call) { return aggregate<Aggregate::GroupRealCount>(call); }
const XValue* gfSubSum(ExprCall& call) { return aggregate<Aggregate::GroupSum>(call); }

}  // namespace tessera::expr_function
