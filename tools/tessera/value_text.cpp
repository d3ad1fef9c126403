#include "tools/tessera/value_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fmt/format.h>
#include <limits>
#include <system_error>

#include "shared/calendar.h"
#include "shared/change_type.h"
#include "shared/real_text.h"
#include "shared/utf.h"

namespace tessera {

namespace {

struct Escape {
  char letter;
  char16_t unit;
};

// The first is the one that is written.
constexpr Escape escapes[] = {{'"', u'"'},  {'\\', u'\\'}, {'b', u'\b'}, {'f', u'\f'},
                              {'n', u'\n'}, {'r', u'\r'},  {'t', u'\t'}, {'/', u'/'}};

template <class Real>
std::string realText(Real value) {
  if (std::isinf(value)) return value < 0 ? "-1e999" : "1e999";
  std::string text = std::isnan(value) ? "nan" : fmt::format("{}", value);
  const bool isWhole = text.find_first_of(".en") == std::string::npos;
  return isWhole ? text + ".0" : text;
}

std::string wholeText(const XValue& value) {
  if (value.type() == VT_UI8) {
    return fmt::format("{}L", static_cast<std::uint64_t>(value.asInt64()));
  }
  const std::int64_t number = value.asInt64();
  const bool isLong = value.type() == VT_I8 || number > std::numeric_limits<std::int32_t>::max();
  return fmt::format("{}{}", number, isLong ? "L" : "");
}

bool isDigits(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

template <class Int>
std::optional<Int> wholeNumber(std::string_view word) {
  Int number = 0;
  const auto read = std::from_chars(word.data(), word.data() + word.size(), number);
  if (read.ec != std::errc() || read.ptr != word.data() + word.size()) return std::nullopt;
  return number;
}

// Digits with a point, an exponent or both; digits on each side of the point.
bool isReal(std::string_view word) {
  if (word.starts_with('-')) word.remove_prefix(1);
  const std::size_t exponent = std::min(word.find_first_of("eE"), word.size());
  const std::string_view mantissa = word.substr(0, exponent);
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  if (!isDigits(mantissa.substr(0, point))) return false;
  if (point < mantissa.size() && !isDigits(mantissa.substr(point + 1))) return false;
  if (exponent == word.size()) return point < mantissa.size();
  std::string_view power = word.substr(exponent + 1);
  if (power.starts_with('-') || power.starts_with('+')) power.remove_prefix(1);
  return isDigits(power);
}

std::optional<XValue> errorOfWord(std::string_view digits) {
  std::uint32_t code = 0;
  const char* end = digits.data() + digits.size();
  const auto read = std::from_chars(digits.data(), end, code, 16);
  if (digits.empty() || read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return XValue::ofError(hresult(code));
}

void appendUnit(std::u16string& text, char16_t unit) { text += unit; }

bool readHexUnit(std::string_view text, char16_t& unit) {
  std::uint16_t number = 0;
  const auto read =
      std::from_chars(text.data(), text.data() + std::min<std::size_t>(4, text.size()), number, 16);
  unit = number;
  return read.ec == std::errc() && read.ptr == text.data() + 4;
}

// The escape at the start of `text`, behind the backslash; 0: none.
std::size_t readEscape(std::string_view text, std::u16string& result) {
  if (text.starts_with('u')) {
    char16_t unit = 0;
    if (!readHexUnit(text.substr(1), unit)) return 0;
    appendUnit(result, unit);
    return 5;
  }
  for (const Escape& escape : escapes) {
    if (!text.starts_with(escape.letter)) continue;
    appendUnit(result, escape.unit);
    return 1;
  }
  return 0;
}

}  // namespace

std::string valueText(const XValue& value) {
  switch (value.type()) {
    case VT_EMPTY:
      return "empty";
    case VT_NULL:
      return "null";
    case VT_BOOL:
      return value.asBool() ? "true" : "false";
    case VT_R4:
      return realText(static_cast<float>(value.asDouble()));
    case VT_R8:
      return realText(value.asDouble());
    case VT_DATE: {
      const auto time = calendarTime(value.asDouble());
      if (!time) return "date:" + realText(value.asDouble());
      return fmt::format("date:{:04}-{:02}-{:02}T{:02}:{:02}:{:02}", time->year, time->month, time->day,
                         time->hour, time->minute, time->second);
    }
    case VT_ERROR:
      return fmt::format("error:0x{:08X}", static_cast<std::uint32_t>(value.asError()));
    case VT_BSTR:
      return quotedText(value.asText());
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return "object";
    default:
      return wholeText(value);
  }
}

std::optional<XValue> valueOfWord(std::string_view word) {
  constexpr std::string_view datePrefix = "date:";
  constexpr std::string_view errorPrefix = "error:0x";
  if (word == "empty") return XValue();
  if (word == "null") return XValue::null();
  if (word == "true" || word == "false") return XValue::ofBool(word == "true");
  if (const auto number = wholeNumber<std::int32_t>(word)) return XValue::ofInt(*number);
  if (word.ends_with('L')) {
    if (const auto number = wholeNumber<std::int64_t>(word.substr(0, word.size() - 1))) {
      return XValue::ofInt64(*number);
    }
  }
  if (isReal(word)) return XValue::ofDouble(readReal(word).value);
  if (word.starts_with(errorPrefix)) return errorOfWord(word.substr(errorPrefix.size()));
  if (word.starts_with(datePrefix)) {
    if (const auto date = parseIsoDate(utf16FromUtf8(word.substr(datePrefix.size())))) {
      return XValue::ofDate(*date);
    }
  }
  return std::nullopt;
}

// Unpaired surrogates have no UTF-8 and are written as escapes.
std::string quotedText(std::u16string_view text) {
  std::string result = "\"";
  const auto isHigh = [](char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; };
  const auto isLow = [](char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    const auto* escape = std::find_if(std::begin(escapes), std::end(escapes) - 1,
                                      [unit](const Escape& row) { return row.unit == unit; });
    if (escape != std::end(escapes) - 1) {
      result.append({'\\', escape->letter});
    } else if (isHigh(unit) && i + 1 < text.size() && isLow(text[i + 1])) {
      result += utf8FromUtf16(text.substr(i++, 2));
    } else if (unit < 0x20 || isHigh(unit) || isLow(unit)) {
      result += fmt::format("\\u{:04x}", static_cast<unsigned>(unit));
    } else {
      result += utf8FromUtf16({&unit, 1});
    }
  }
  return result + '"';
}

std::optional<std::string> readQuoted(std::string_view quoted, std::size_t& length) {
  std::u16string result;
  std::size_t at = 1;
  while (at < quoted.size() && quoted[at] != '"') {
    if (quoted[at] == '\\') {
      const std::size_t read = readEscape(quoted.substr(at + 1), result);
      if (read == 0) return std::nullopt;
      at += 1 + read;
      continue;
    }
    const std::size_t end = std::min(quoted.find_first_of("\"\\", at), quoted.size());
    result += utf16FromUtf8(quoted.substr(at, end - at));
    at = end;
  }
  if (at >= quoted.size()) return std::nullopt;
  length = at + 1;
  return utf8FromUtf16(result);
}

}  // namespace tessera
