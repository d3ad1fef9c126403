// Functions that choose and compare. The type at run time of their first argument decides what they do.

#include "expr/comparison.h"
#include "expr/function_handlers.h"

namespace tessera::expr_function {
namespace {

using Order = std::int32_t (*)(const XValue&, const XValue&);

// How values of a type compare; null for a type without an order.
Order orderOf(VarType type) {
  switch (type) {
    case VT_R8:
    case VT_DATE:
      return orderNumbers;
    case VT_BSTR:
      return orderTexts;
    case VT_BOOL:
      return orderLogicals;
    default:
      return nullptr;
  }
}

// Of equal type and value; two dates never are.
bool isSame(const XValue& left, const XValue& right) {
  if (left.type() == VT_R8 && right.type() == VT_R8) return left.asDouble() == right.asDouble();
  return left.type() != VT_DATE && left == right;
}

// An argument in the layout of `type`.
const XValue* giveAs(ExprCall& call, VarType type, std::uint32_t index) {
  if (call.value(index).type() == type) return call.giveArgument(index);
  switch (type) {
    case VT_DATE:
      return call.giveDate(call.number(index));
    case VT_BSTR:
      return call.giveText(call.text(index));
    case VT_BOOL:
      return call.giveLogical(call.logical(index));
    default:
      return call.giveNumber(call.number(index));
  }
}

// The argument furthest in one direction: 1 for the greatest, -1 for the smallest. Of equal ones the first.
const XValue* extreme(ExprCall& call, VarType type, std::int32_t direction) {
  const Order order = orderOf(type);
  if (!order) {
    return call.fail(ExprErrorCode::ArgumentType, std::string_view(direction > 0 ? "MAX" : "MIN"), 1);
  }
  std::uint32_t best = 0;
  for (std::uint32_t i = 1; i < call.count(); ++i) {
    if (order(call.value(i), call.value(best)) * direction > 0) best = i;
  }
  return giveAs(call, type, best);
}

}  // namespace

// Both bounds are outside.
const XValue* between(ExprCall& call) {
  const XValue& value = call.value(0);
  const Order order = orderOf(value.type());
  return call.giveLogical(order && order(call.value(1), value) < 0 && order(value, call.value(2)) < 0);
}

// Pairs of a key and a value; a last argument without a partner is the default.
const XValue* decode(ExprCall& call) {
  const XValue& sought = call.value(0);
  for (std::uint32_t key = 1; key < call.count(); key += 2) {
    const bool hasValue = key + 1 < call.count();
    if (isSame(sought, call.value(key))) return hasValue ? call.giveArgument(key + 1) : call.giveText({});
    if (!hasValue) return call.giveArgument(key);
  }
  return call.giveText({});
}

const XValue* empty(ExprCall& call) {
  constexpr double earliest = -657434;
  constexpr double latest = 2958465;
  const XValue& value = call.value(0);
  switch (value.type()) {
    case VT_R8:
      return call.giveLogical(value.asDouble() == 0);
    case VT_DATE:
      return call.giveLogical(value.asDouble() == 0 || value.asDouble() > latest ||
                              value.asDouble() < earliest);
    case VT_BSTR:
      return call.giveLogical(value.asText().empty());
    case VT_BOOL:
      return call.giveLogical(!value.asBool());
    default:
      return call.giveLogical(false);
  }
}

// Both values were computed before.
const XValue* iif(ExprCall& call) { return call.giveArgument(call.logical(0) ? 1 : 2); }

// The greatest of 64-bit integers is sought among numbers; their smallest is refused.
const XValue* max(ExprCall& call) {
  const VarType type = call.value(0).type();
  return extreme(call, type == VT_I8 ? VT_R8 : type, 1);
}

const XValue* min(ExprCall& call) { return extreme(call, call.value(0).type(), -1); }

const XValue* varType(ExprCall& call) {
  switch (call.value(0).type()) {
    case VT_NULL:
      return call.giveText(u"X");
    case VT_R8:
      return call.giveText(u"N");
    case VT_DATE:
      return call.giveText(u"D");
    case VT_BSTR:
      return call.giveText(u"C");
    case VT_BOOL:
      return call.giveText(u"L");
    default:
      return call.giveText(u"U");
  }
}

}  // namespace tessera::expr_function
