// Functions on numbers. Those that round give text.

#include <algorithm>
#include <cmath>

#include "expr/english_locale.h"
#include "expr/function_handlers.h"
#include "shared/number_text.h"

namespace tessera::expr_function {
namespace {

constexpr std::int32_t textDigits = 15;

// As the user writes it.
const XValue* giveNumberText(ExprCall& call, double number) {
  const NumberText text = NumberText::ofReal(number, textDigits);
  const std::string_view digits = text.view();
  const char16_t point = localeOf(call.context()).decimalPoint();
  return call.giveWrittenText(static_cast<std::int64_t>(digits.size()), [&](char16_t* place) {
    std::transform(digits.begin(), digits.end(), place,
                   [point](char c) { return c == '.' ? point : static_cast<char16_t>(c); });
  });
}

template <double (*function)(double)>
const XValue* plain(ExprCall& call) {
  return call.giveNumber(function(call.number(0)));
}

}  // namespace

const XValue* abs(ExprCall& call) { return giveNumberText(call, std::fabs(call.number(0))); }
const XValue* ceil(ExprCall& call) { return giveNumberText(call, std::ceil(call.number(0))); }
const XValue* floor(ExprCall& call) { return giveNumberText(call, std::floor(call.number(0))); }

const XValue* round(ExprCall& call) {
  const double scale = std::pow(10.0, call.number(1));
  return giveNumberText(call, std::floor(call.number(0) * scale + 0.5) / scale);
}

const XValue* truncate(ExprCall& call) {
  const double scale = std::pow(10.0, call.number(1));
  return giveNumberText(call, std::floor(call.number(0) * scale) / scale);
}

const XValue* aTan(ExprCall& call) { return plain<std::atan>(call); }
const XValue* cos(ExprCall& call) { return plain<std::cos>(call); }
const XValue* exp(ExprCall& call) { return plain<std::exp>(call); }
const XValue* sin(ExprCall& call) { return plain<std::sin>(call); }
const XValue* tan(ExprCall& call) { return plain<std::tan>(call); }

const XValue* integer(ExprCall& call) { return call.giveNumber(call.integer(0)); }

const XValue* log(ExprCall& call) {
  if (!(call.number(0) > 0)) return call.fail(ExprErrorCode::LogDomain);
  return plain<std::log>(call);
}

const XValue* log10(ExprCall& call) {
  if (!(call.number(0) > 0)) return call.fail(ExprErrorCode::Log10Domain);
  return plain<std::log10>(call);
}

const XValue* sqrt(ExprCall& call) {
  if (call.number(0) < 0) return call.fail(ExprErrorCode::SqrtDomain);
  return plain<std::sqrt>(call);
}

const XValue* mod(ExprCall& call) { return call.giveNumber(std::fmod(call.number(0), call.number(1))); }

const XValue* pi(ExprCall& call) { return call.giveNumber(3.1415926535); }

const XValue* sign(ExprCall& call) {
  const double number = call.number(0);
  return call.giveNumber((number > 0) - (number < 0));
}

}  // namespace tessera::expr_function
