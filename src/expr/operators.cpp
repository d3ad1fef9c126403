#include "expr/operators.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "expr/ascii.h"
#include "expr/comparison.h"
#include "expr/function_handlers.h"
#include "shared/change_type.h"

namespace tessera {
namespace {

const XValue* placeholder(ExprCall& call) { return &call.own(); }

const XValue* addNumbers(ExprCall& call) { return call.giveNumber(call.number(0) + call.number(1)); }
const XValue* subtractNumbers(ExprCall& call) { return call.giveNumber(call.number(0) - call.number(1)); }
const XValue* multiply(ExprCall& call) { return call.giveNumber(call.number(0) * call.number(1)); }

// A divisor of 0 counts as 1.
const XValue* divide(ExprCall& call) {
  const double divisor = call.number(1);
  return call.giveNumber(call.number(0) / (divisor == 0 ? 1 : divisor));
}

const XValue* power(ExprCall& call) {
  if (!(call.number(0) > 0)) return call.fail(ExprErrorCode::PowerDomain);
  return call.giveNumber(std::pow(call.number(0), call.number(1)));
}

// No value when the date leaves the calendar.
const XValue* giveShiftedDate(ExprCall& call, double date) {
  XValue& own = call.own();
  own.setDouble(date);
  if (!succeeded(changeType(own, VT_DATE, own))) own.setEmpty();
  return &own;
}

const XValue* addDate(ExprCall& call) { return giveShiftedDate(call, call.number(0) + call.number(1)); }

// A left text in the operator's own slot, from the operator before, is added to.
const XValue* join(ExprCall& call, std::u16string_view left, std::u16string_view right) {
  if (left.data() == call.own().asText().chars()) return call.giveGrownText(left.size(), right);
  return call.giveWrittenText(static_cast<std::int64_t>(left.size() + right.size()), [&](char16_t* place) {
    std::copy(right.begin(), right.end(), std::copy(left.begin(), left.end(), place));
  });
}

const XValue* concatenate(ExprCall& call) { return join(call, call.text(0), call.text(1)); }

bool eitherIs(const ExprCall& call, VarType type) {
  return call.value(0).type() == type || call.value(1).type() == type;
}

// Asked first where nearly all values are of one type.
bool bothAre(const ExprCall& call, VarType type) {
  return call.value(0).type() == type && call.value(1).type() == type;
}

const XValue* dynamicAdd(ExprCall& call) {
  if (bothAre(call, VT_R8)) return call.giveNumber(call.value(0).asDouble() + call.value(1).asDouble());
  if (eitherIs(call, VT_BSTR)) return concatenate(call);
  return eitherIs(call, VT_DATE) ? addDate(call) : addNumbers(call);
}

// The left operand of a negation is the number 0, which is no text before a text.
const XValue* dynamicSubtract(ExprCall& call) {
  const XValue& left = call.value(0);
  if (eitherIs(call, VT_BSTR)) return join(call, trimRight(left.asText()), call.text(1));
  if (left.type() == VT_DATE) return giveShiftedDate(call, call.number(0) - call.number(1));
  return subtractNumbers(call);
}

// Equal is what is neither less nor greater.
template <OperatorCode code, class T>
constexpr bool holds(T left, T right) {
  switch (code) {
    case OperatorCode::NotEqual:
      return left < right || left > right;
    case OperatorCode::Greater:
      return left > right;
    case OperatorCode::GreaterEqual:
      return left >= right;
    case OperatorCode::Less:
      return left < right;
    case OperatorCode::LessEqual:
      return left <= right;
    default:
      return !(left < right) && !(left > right);
  }
}

template <OperatorCode code>
const XValue* compareNumbers(ExprCall& call) {
  return call.giveLogical(holds<code>(call.number(0), call.number(1)));
}

template <OperatorCode code>
const XValue* compareLogicals(ExprCall& call) {
  return call.giveLogical(holds<code>(logicalOf(call.value(0)), logicalOf(call.value(1))));
}

template <OperatorCode code>
const XValue* compareTexts(ExprCall& call) {
  return call.giveLogical(holds<code>(orderTexts(call.value(0), call.value(1)), 0));
}

const XValue* trimmedEqual(ExprCall& call) {
  if (bothAre(call, VT_BSTR)) {
    return call.giveLogical(trimRight(call.value(0).asText()) == trimRight(call.value(1).asText()));
  }
  return call.giveLogical(trimRight(call.text(0)) == trimRight(call.text(1)));
}

// Dates compare as the numbers that they are.
template <OperatorCode code, ExprHandler texts>
const XValue* compareAny(ExprCall& call) {
  if (bothAre(call, VT_BSTR)) return texts(call);
  if (eitherIs(call, VT_R8)) return compareNumbers<code>(call);
  if (eitherIs(call, VT_BOOL)) return compareLogicals<code>(call);
  if (!eitherIs(call, VT_DATE) && eitherIs(call, VT_BSTR)) return texts(call);
  return compareNumbers<code>(call);
}

const XValue* logicalNot(ExprCall& call) { return call.giveLogical(!call.logical(1)); }
const XValue* logicalAnd(ExprCall& call) { return call.giveLogical(call.logical(0) && call.logical(1)); }
const XValue* logicalOr(ExprCall& call) { return call.giveLogical(call.logical(0) || call.logical(1)); }

const XValue* containedIn(ExprCall& call) {
  return call.giveLogical(call.text(1).view().find(call.text(0)) != std::u16string_view::npos);
}

struct ComparisonRow {
  OperatorCode code;
  ExprHandler numbers;  // and dates
  ExprHandler logicals;
  ExprHandler texts;
  ExprHandler any;
};

template <OperatorCode code, ExprHandler texts = compareTexts<code>, ExprHandler textsOfAny = texts>
constexpr ComparisonRow comparisonRow() {
  return {code, compareNumbers<code>, compareLogicals<code>, texts, compareAny<code, textsOfAny>};
}

// Values of a type that only the run tells are never compared exactly by "==".
constexpr ComparisonRow comparisonRows[] = {
    comparisonRow<OperatorCode::Equal, trimmedEqual>(),
    comparisonRow<OperatorCode::ExactEqual, compareTexts<OperatorCode::ExactEqual>, trimmedEqual>(),
    comparisonRow<OperatorCode::NotEqual>(),
    comparisonRow<OperatorCode::Greater>(),
    comparisonRow<OperatorCode::GreaterEqual>(),
    comparisonRow<OperatorCode::Less>(),
    comparisonRow<OperatorCode::LessEqual>(),
};

struct TypedRow {
  OperatorCode code;
  ExprType left;
  ExprType right;
  ExprHandler handler;
  ExprType result;
};

using enum ExprType;

constexpr TypedRow typedRows[] = {
    {OperatorCode::Add, Number, Number, addNumbers, Number},
    {OperatorCode::Add, Text, Text, concatenate, Text},
    {OperatorCode::Add, Date, Number, addDate, Date},
    {OperatorCode::Add, Number, Date, addDate, Date},
    {OperatorCode::Negate, Number, Number, subtractNumbers, Number},
};

// What the operands must be where no typed row fits.
enum class Accepts {
  Everything,
  EitherAny,     // one of them is known at run time only
  OperandOrAny,  // each is of the row's type or known at run time only
  RightOrAny,    // the right one is
};

struct GeneralRow {
  OperatorCode code;
  Accepts accepts;
  ExprType operand;
  ExprHandler handler;
  ExprType result;
};

constexpr GeneralRow generalRows[] = {
    {OperatorCode::Placeholder, Accepts::Everything, Any, placeholder, Any},
    {OperatorCode::Add, Accepts::EitherAny, Any, dynamicAdd, Any},
    {OperatorCode::Negate, Accepts::EitherAny, Any, dynamicSubtract, Any},
    {OperatorCode::Multiply, Accepts::OperandOrAny, Number, multiply, Number},
    {OperatorCode::Divide, Accepts::OperandOrAny, Number, divide, Number},
    {OperatorCode::Power, Accepts::OperandOrAny, Number, power, Number},
    {OperatorCode::Remainder, Accepts::OperandOrAny, Number, expr_function::mod, Number},
    {OperatorCode::Not, Accepts::RightOrAny, Logical, logicalNot, Logical},
    {OperatorCode::And, Accepts::OperandOrAny, Logical, logicalAnd, Logical},
    {OperatorCode::Or, Accepts::OperandOrAny, Logical, logicalOr, Logical},
    {OperatorCode::Contained, Accepts::OperandOrAny, Text, containedIn, Logical},
};

bool accepts(const GeneralRow& row, ExprType left, ExprType right) {
  const auto suits = [&row](ExprType type) { return type == row.operand || type == Any; };
  switch (row.accepts) {
    case Accepts::EitherAny:
      return left == Any || right == Any;
    case Accepts::OperandOrAny:
      return suits(left) && suits(right);
    case Accepts::RightOrAny:
      return suits(right);
    default:
      return true;
  }
}

OperatorChoice chooseComparison(const ComparisonRow& row, ExprType left, ExprType right) {
  if (left == Any || right == Any) return {row.any, Logical, true};
  if (left != right) return {row.any, Logical, false};
  switch (left) {
    case Number:
    case Date:
      return {row.numbers, Logical, true};
    case Logical:
      return {row.logicals, Logical, true};
    case Text:
      return {row.texts, Logical, true};
    default:
      return {row.any, Logical, false};
  }
}

}  // namespace

OperatorChoice chooseOperator(OperatorCode code, ExprType left, ExprType right) {
  for (const ComparisonRow& row : comparisonRows) {
    if (row.code == code) return chooseComparison(row, left, right);
  }
  for (const TypedRow& row : typedRows) {
    if (row.code == code && row.left == left && row.right == right) return {row.handler, row.result, true};
  }
  const auto* row = std::find_if(std::begin(generalRows), std::end(generalRows),
                                 [code](const GeneralRow& general) { return general.code == code; });
  return {row->handler, row->result, accepts(*row, left, right)};
}

}  // namespace tessera
