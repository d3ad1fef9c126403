#include "shared/real_text.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace tessera {
namespace {

// Whether a number that no double holds is too large, not too small: the place of its first digit tells.
bool isTooLarge(std::string_view digits) {
  const std::size_t mark = std::min(digits.find_first_of("eE"), digits.size());
  const std::string_view mantissa = digits.substr(0, mark);
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t first = std::min(mantissa.find_first_of("123456789"), mantissa.size());
  const auto place = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
  if (mark == digits.size()) return place > 0;
  std::string_view exponent = digits.substr(mark + 1);
  const bool negative = exponent.starts_with('-');
  if (negative || exponent.starts_with('+')) exponent.remove_prefix(1);
  std::int64_t power = std::numeric_limits<std::int32_t>::max();
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
  return place + (negative ? -power : power) > 0;
}

}  // namespace

char* writeReal(char* begin, char* end, double value, RealForm form, std::int32_t digits) {
  const auto format = form == RealForm::Fixed ? std::chars_format::fixed : std::chars_format::scientific;
  return digits < 0 ? std::to_chars(begin, end, value, format).ptr
                    : std::to_chars(begin, end, value, format, digits).ptr;
}

RealRead readReal(std::string_view text) {
  RealRead read;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), read.value);
  if (fault == std::errc::invalid_argument) return {};
  read.length = static_cast<std::size_t>(end - text.data());
  if (fault == std::errc()) return read;
  read.inRange = false;
  const bool negative = text.front() == '-';
  read.value = isTooLarge(text.substr(negative, read.length - negative))
                   ? std::numeric_limits<double>::infinity()
                   : 0.0;
  if (negative) read.value = -read.value;
  return read;
}

}  // namespace tessera
