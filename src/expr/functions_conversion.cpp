// Functions between texts and numbers.

#include <algorithm>
#include <fmt/format.h>
#include <iterator>

#include "expr/function_handlers.h"
#include "expr/leading_number.h"
#include "shared/compare.h"
#include "shared/number_text.h"

namespace tessera::expr_function {
namespace {

// What of a number's text stands in a field of `width`.
std::int64_t keptLength(std::int64_t length, std::int64_t width, std::int64_t decimals) {
  // The point would be the last character.
  if (length - decimals == width) return std::max<std::int64_t>(width - 1, 0);
  return std::clamp<std::int64_t>(width, 0, length);
}

}  // namespace

// A number whose integer part does not fit the width is one asterisk.
const XValue* str(ExprCall& call) {
  const std::int64_t width = call.integer(1);
  const std::int32_t decimals = std::max(call.integer(2), 0);
  if (decimals > maxMadeText) return call.failArguments();
  fmt::memory_buffer digits;
  fmt::format_to(std::back_inserter(digits), "{:.{}f}", withoutNanSign(call.number(0)), decimals);
  const auto length = static_cast<std::int64_t>(digits.size());
  if (length > width && width < length - decimals - 1) return call.giveText(u"*");
  const std::int64_t kept = length > width ? keptLength(length, width, decimals) : length;
  const std::int64_t blanks = std::max<std::int64_t>(width - length, 0);
  return call.giveMadeText(blanks + kept, [&](char16_t* place) {
    std::copy_n(digits.data(), kept, std::fill_n(place, blanks, u' '));
  });
}

const XValue* toInt(ExprCall& call) {
  const XValue& value = call.value(0);
  switch (value.type()) {
    case VT_BSTR:
      call.own().setInt64(parseInt(value.asText()));
      return &call.own();
    case VT_I4:
    case VT_I8:
      call.own().setInt64(value.asInt64());
      return &call.own();
    case VT_R8:
      call.own().setInt64(cutToInt64(value.asDouble()));
      return &call.own();
    default:
      return call.failArguments();
  }
}

const XValue* toNumber(ExprCall& call) {
  switch (call.value(0).type()) {
    case VT_BSTR:
    case VT_I4:
    case VT_I8:
    case VT_R8:
      return call.giveNumber(call.number(0));
    default:
      return call.failArguments();
  }
}

const XValue* toString(ExprCall& call) {
  const XValue& value = call.value(0);
  switch (value.type()) {
    case VT_BSTR:
      return call.giveArgument(0);
    case VT_I4:
    case VT_I8:
    case VT_R8:
      writeNumber(value, call.beginText());
      return call.endText();
    default:
      return call.failArguments();
  }
}

const XValue* val(ExprCall& call) { return call.giveNumber(leadingNumber(call.text(0))); }

}  // namespace tessera::expr_function
