#include "shared/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <fmt/format.h>

#include "shared/real_text.h"

namespace tessera {
namespace {

// The powers of ten from which and up to which no exponent is written.
constexpr std::int32_t plainLeast = -5;
constexpr std::int32_t plainLimit = 15;

constexpr bool isSpace(char16_t unit) { return unit == u' ' || (unit >= u'\t' && unit <= u'\r'); }
constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::u16string_view trimmed(std::u16string_view text) {
  while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && isSpace(text.back())) text.remove_suffix(1);
  return text;
}

template <class Integer>
bool readWhole(std::string_view text, Integer& value) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size();
}

// The significant digits of a number and the power of ten of the first one.
struct Decimal {
  bool negative = false;
  char digits[24];
  std::int32_t count = 0;
  std::int32_t exponent = 0;
};

Decimal decimalOf(double value, std::int32_t digits) {
  char text[40];
  char* const behind = text + sizeof text;
  char* end = writeReal(text, behind, value, RealForm::Scientific);
  // Sign, point and exponent aside, the shortest form that reads back as `value` is mostly short enough, and
  // then it is also the rounded form.
  const char* mark = std::find(text, end, 'e');
  if (mark - text - (value < 0) - 1 > digits) {
    end = writeReal(text, behind, value, RealForm::Scientific, digits - 1);
    mark = std::find(text, end, 'e');
  }
  Decimal decimal;
  decimal.negative = text[0] == '-';
  for (const char* at = text; at < mark; ++at) {
    if (isDigit(*at)) decimal.digits[decimal.count++] = *at;
  }
  while (decimal.count > 1 && decimal.digits[decimal.count - 1] == '0') --decimal.count;
  const char* power = mark + 1 + (mark[1] == '+');
  std::from_chars(power, end, decimal.exponent);
  return decimal;
}

}  // namespace

Number Number::ofSigned(std::int64_t value) { return {Kind::Signed, value, 0}; }

Number Number::ofUnsigned(std::uint64_t value) {
  const auto bits = static_cast<std::int64_t>(value);
  return {bits < 0 ? Kind::Unsigned : Kind::Signed, bits, 0};
}

Number Number::ofReal(double value) { return {Kind::Real, 0, value}; }

double Number::asReal() const {
  if (kind == Kind::Real) return real;
  if (kind == Kind::Unsigned) return static_cast<double>(static_cast<std::uint64_t>(integer));
  return static_cast<double>(integer);
}

HResult parseNumber(std::u16string_view text, Number& number) {
  text = trimmed(text);
  fmt::basic_memory_buffer<char, 64> narrow;
  for (char16_t unit : text) {
    if (unit >= 0x80) return DISP_E_TYPEMISMATCH;
    narrow.push_back(static_cast<char>(unit));
  }
  std::string_view digits(narrow.data(), narrow.size());
  if (digits.starts_with('+') && !digits.starts_with("+-")) digits.remove_prefix(1);
  const std::string_view body = digits.substr(digits.starts_with('-') ? 1 : 0);
  if (body.empty() || !(isDigit(body[0]) || body[0] == '.')) return DISP_E_TYPEMISMATCH;
  std::int64_t whole = 0;
  if (readWhole(digits, whole)) {
    number = Number::ofSigned(whole);
    return S_OK;
  }
  std::uint64_t large = 0;
  if (readWhole(digits, large)) {
    number = Number::ofUnsigned(large);
    return S_OK;
  }
  const RealRead real = readReal(digits);
  if (real.length != digits.size()) return DISP_E_TYPEMISMATCH;
  if (!real.inRange && real.value != 0) return DISP_E_OVERFLOW;
  number = Number::ofReal(real.value);
  return S_OK;
}

NumberText NumberText::ofReal(double value, std::int32_t digits) {
  NumberText text;
  if (!std::isfinite(value)) {
    text.put(std::isnan(value) ? "nan" : value < 0 ? "-inf" : "inf");
    return text;
  }
  const Decimal decimal = value == 0 ? Decimal{false, "0", 1, 0} : decimalOf(value, digits);
  if (decimal.negative) text.put('-');
  const bool isLimit = decimal.exponent == plainLimit && decimal.count == 1 && decimal.digits[0] == '1';
  if (decimal.exponent >= plainLeast && (decimal.exponent < plainLimit || isLimit)) {
    text.putPlain(decimal.digits, decimal.count, decimal.exponent);
  } else {
    text.putScientific(decimal.digits, decimal.count, decimal.exponent);
  }
  return text;
}

NumberText NumberText::ofWhole(const Number& number) {
  const bool large = number.kind == Number::Kind::Unsigned;
  NumberText text;
  text.put(large ? fmt::format_int(static_cast<std::uint64_t>(number.integer)).c_str()
                 : fmt::format_int(number.integer).c_str());
  return text;
}

void NumberText::putPlain(const char* digits, std::int32_t count, std::int32_t exponent) {
  const auto digitAt = [&](std::int32_t i) { return i >= 0 && i < count ? digits[i] : '0'; };
  for (std::int32_t i = std::min(exponent, 0); i <= exponent; ++i) put(digitAt(i));
  if (exponent >= count - 1) return;
  put('.');
  for (std::int32_t i = exponent + 1; i < count; ++i) put(digitAt(i));
}

void NumberText::putScientific(const char* digits, std::int32_t count, std::int32_t exponent) {
  put(digits[0]);
  if (count > 1) put('.');
  put(std::string_view(digits + 1, static_cast<std::size_t>(count - 1)));
  put(exponent < 0 ? "E-" : "E+");
  if (std::abs(exponent) < 10) put('0');
  put(fmt::format_int(std::abs(exponent)).c_str());
}

}  // namespace tessera
