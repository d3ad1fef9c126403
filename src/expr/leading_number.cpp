#include "expr/leading_number.h"

#include <fmt/format.h>

#include "shared/real_text.h"

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
  const double number = readReal({narrow.data(), narrow.size()}).value;
  return negative ? -number : number;
}

}  // namespace tessera
