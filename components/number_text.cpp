#include "components/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

#include "shared/real_text.h"
#include "shared/utf.h"

namespace tessera {
namespace {

char* fixedText(double value, std::int32_t scale, NumberBuffer& buffer) {
  return writeReal(buffer.data, buffer.data + sizeof buffer.data, value, RealForm::Fixed, scale);
}

// Digits before the point; none for a number below 1.
std::int32_t wholeDigits(const char* begin, const char* end) {
  if (begin != end && *begin == '-') ++begin;
  if (begin != end && *begin == '0') return 0;
  return static_cast<std::int32_t>(std::find(begin, end, '.') - begin);
}

std::string_view withoutSignOfZero(const char* begin, const char* end) {
  const bool zero = std::all_of(begin, end, [](char c) { return c == '-' || c == '0' || c == '.'; });
  if (zero && begin != end && *begin == '-') ++begin;
  return {begin, static_cast<std::size_t>(end - begin)};
}

double roundedToDigits(double value) {
  char text[32];
  const char* const end = writeReal(text, text + sizeof text, value, RealForm::Scientific, decimalDigits - 1);
  return readReal({text, static_cast<std::size_t>(end - text)}).value;
}

std::string_view trimmedNumber(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  text = text.substr(first, text.find_last_not_of(" \t") - first + 1);
  const bool plus = text.size() > 1 && text[0] == '+' && text[1] != '-';
  return plus ? text.substr(1) : text;
}

}  // namespace

std::string_view wholeText(std::int64_t value, NumberBuffer& buffer) {
  const auto end = std::to_chars(buffer.data, buffer.data + sizeof buffer.data, value).ptr;
  return {buffer.data, static_cast<std::size_t>(end - buffer.data)};
}

std::string_view decimalText(double value, std::int32_t scale, NumberBuffer& buffer) {
  scale = std::clamp(scale, 0, maxScale);
  char* end = fixedText(value, scale, buffer);
  const std::int32_t sound = std::max(0, decimalDigits - wholeDigits(buffer.data, end));
  if (scale > sound) {
    end = fixedText(value, sound, buffer);
    if (sound == 0) *end++ = '.';
    end = std::fill_n(end, scale - sound, '0');
  }
  return withoutSignOfZero(buffer.data, end);
}

std::string_view exactDecimalText(double value, std::int32_t scale, NumberBuffer& buffer) {
  value = roundedToDigits(value);
  const std::string_view shown = decimalText(value, scale, buffer);
  if (readReal(shown).value == value) return shown;
  return withoutSignOfZero(buffer.data, fixedText(value, shortestDigits, buffer));
}

double withoutRoundingNoise(double value) {
  const double rounded = roundedToDigits(value);
  return std::abs(value - rounded) <= std::abs(value) * 4 * std::numeric_limits<double>::epsilon() ? rounded
                                                                                                   : value;
}

bool parseWhole(std::string_view text, std::int64_t& value) {
  text = trimmedNumber(text);
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value);
  return !text.empty() && fault == std::errc() && end == text.data() + text.size();
}

bool parseDecimal(std::string_view text, double& value) {
  text = trimmedNumber(text);
  const RealRead read = readReal(text);
  if (text.empty() || read.length != text.size() || !read.inRange || !std::isfinite(read.value)) return false;
  value = read.value;
  return true;
}

void assignUtf8(XString& result, std::string_view utf8) {
  constexpr std::size_t smallText = 256;
  if (utf8.size() <= smallText) {
    char16_t units[smallText];
    result.assign({units, static_cast<std::size_t>(writeUtf16(utf8, units) - units)});
    return;
  }
  thread_local std::u16string wide;
  wide.resize(utf8.size());
  result.assign({wide.data(), static_cast<std::size_t>(writeUtf16(utf8, wide.data()) - wide.data())});
}

}  // namespace tessera
