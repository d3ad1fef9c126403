#include "expr/leading_number.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <fmt/format.h>
#include <limits>

namespace tessera {
namespace {

constexpr bool isSpace(char16_t unit) { return unit == u' ' || (unit >= u'\t' && unit <= u'\r'); }
constexpr bool isDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

// The length of digits with at most one point at the front of `text`; 0 without a digit.
std::size_t mantissaLength(std::u16string_view text) {
  std::size_t length = 0;
  bool point = false;
  bool digits = false;
  for (; length < text.size(); ++length) {
    if (isDigit(text[length])) {
      digits = true;
    } else if (text[length] == u'.' && !point) {
      point = true;
    } else {
      break;
    }
  }
  return digits ? length : 0;
}

// The length of an exponent with at least one digit at the front of `text`, else 0.
std::size_t exponentLength(std::u16string_view text) {
  if (text.empty() || (text[0] != u'e' && text[0] != u'E')) return 0;
  std::size_t length = 1;
  if (length < text.size() && (text[length] == u'+' || text[length] == u'-')) ++length;
  const std::size_t first = length;
  while (length < text.size() && isDigit(text[length])) ++length;
  return length > first ? length : 0;
}

// Whether a number that does not fit a double is too large, not too small: the place of its first digit
// tells.
bool isTooLarge(std::string_view mantissa, std::string_view exponent) {
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t first = std::min(mantissa.find_first_not_of("0."), mantissa.size());
  const auto place = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
  if (exponent.empty()) return place > 0;
  const bool negative = exponent[1] == '-';
  std::int64_t power = std::numeric_limits<std::int32_t>::max();
  std::from_chars(exponent.data() + (negative || exponent[1] == '+' ? 2 : 1),
                  exponent.data() + exponent.size(), power);
  return place + (negative ? -power : power) > 0;
}

}  // namespace

double leadingNumber(std::u16string_view text) {
  while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
  const bool negative = !text.empty() && text.front() == u'-';
  if (!text.empty() && (text.front() == u'-' || text.front() == u'+')) text.remove_prefix(1);
  const std::size_t mantissa = mantissaLength(text);
  if (mantissa == 0) return 0;
  const std::size_t exponent = exponentLength(text.substr(mantissa));
  fmt::basic_memory_buffer<char, 64> narrow;
  for (const char16_t unit : text.substr(0, mantissa + exponent)) narrow.push_back(static_cast<char>(unit));
  double number = 0;
  const auto [end, error] = std::from_chars(narrow.data(), narrow.data() + narrow.size(), number);
  if (error == std::errc::result_out_of_range) {
    const std::string_view digits(narrow.data(), narrow.size());
    const bool large = isTooLarge(digits.substr(0, mantissa), digits.substr(mantissa));
    number = large ? std::numeric_limits<double>::infinity() : 0;
  }
  return negative ? -number : number;
}

}  // namespace tessera
