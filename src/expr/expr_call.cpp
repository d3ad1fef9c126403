#include "expr/expr_call.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <iterator>
#include <limits>

#include "expr/function_table.h"
#include "expr/leading_number.h"
#include "shared/number_text.h"

namespace tessera {
namespace {

template <class Integer>
Integer cut(double number) {
  if (std::isnan(number)) return 0;
  constexpr auto least = std::numeric_limits<Integer>::min();
  // The greatest integer itself has no double when it is one of 64 bits: the power of two above it does.
  constexpr double limit = -static_cast<double>(least);
  if (number >= limit) return std::numeric_limits<Integer>::max();
  return number <= static_cast<double>(least) ? least : static_cast<Integer>(number);
}

bool isInteger(VarType type) {
  switch (type) {
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_I8:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
      return true;
    default:
      return false;
  }
}

void writeReal(double number, XString& text) {
  fmt::memory_buffer digits;
  fmt::format_to(std::back_inserter(digits), "{:f}", withoutNanSign(number));
  std::string_view kept(digits.data(), digits.size());
  if (kept.find('.') != kept.npos) {
    kept = kept.substr(0, kept.find_last_not_of('0') + 1);
    if (kept.ends_with('.')) kept.remove_suffix(1);
  }
  text.assignNarrow(kept);
}

}  // namespace

void ExprText::convert(const XValue& value) {
  writeNumber(value, made_.emplace());
  view_ = *made_;
}

double otherNumber(const XValue& value) {
  if (value.type() == VT_R4) return value.asDouble();
  if (value.type() == VT_BSTR) return leadingNumber(value.asText());
  if (value.type() == VT_UI8) return static_cast<double>(static_cast<std::uint64_t>(value.asInt64()));
  return isInteger(value.type()) ? static_cast<double>(value.asInt64()) : 0;
}

std::int32_t cutLargeToInt(double number) { return cut<std::int32_t>(number); }
std::int64_t cutToInt64(double number) { return cut<std::int64_t>(number); }

void writeNumber(const XValue& value, XString& text) {
  if (value.type() == VT_R8 || value.type() == VT_R4) return writeReal(value.asDouble(), text);
  if (value.type() == VT_UI8) {
    return text.assignNarrow(fmt::format_int(static_cast<std::uint64_t>(value.asInt64())).c_str());
  }
  if (isInteger(value.type())) return text.assignNarrow(fmt::format_int(value.asInt64()).c_str());
  text.assign({});
}

const XValue* ExprCall::giveGrownText(std::size_t kept, std::u16string_view added) {
  const std::size_t length = kept + added.size();
  if (length > std::numeric_limits<std::int32_t>::max()) return failArguments();
  const auto size = static_cast<std::int32_t>(length);
  XString& text = own_->textBuffer();
  char16_t* place = text.reserve(size);
  if (!place) return failArguments();
  std::copy(added.begin(), added.end(), place + kept);
  text.releaseBuffer(size);
  return endText();
}

const XValue* ExprCall::failArguments() {
  return fail(ExprErrorCode::InvalidArguments, std::string_view(function_ ? function_->name : "+"));
}

void ExprCall::clearOwn() {
  switch (function_ ? function_->result : ExprType::Any) {
    case ExprType::Number:
      return own_->setDouble(0);
    case ExprType::Text:
      return own_->setText(u"");
    case ExprType::Date:
      return own_->setDate(0);
    case ExprType::Logical:
      return own_->setBool(false);
    default:
      return own_->setEmpty();
  }
}

}  // namespace tessera
