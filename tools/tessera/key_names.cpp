#include "tools/tessera/key_names.h"

#include <algorithm>

#include "shared/compare.h"

namespace tessera {

namespace {

struct KeyName {
  std::u16string_view name;
  std::int32_t code;
};

constexpr KeyName names[] = {
    {u"Backspace", 8}, {u"Tab", 9},       {u"Enter", 13}, {u"Escape", 27}, {u"Space", 32},
    {u"PageUp", 33},   {u"PageDown", 34}, {u"End", 35},   {u"Home", 36},   {u"Left", 37},
    {u"Up", 38},       {u"Right", 39},    {u"Down", 40},  {u"Delete", 46},
};

constexpr std::int32_t beforeF1 = 111, functionKeys = 12, highestCode = 255;

bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

// Nothing for a text that is no number of one to three digits.
std::optional<std::int32_t> smallNumber(std::u16string_view text) {
  if (text.empty() || text.size() > 3 || !std::all_of(text.begin(), text.end(), isDigit)) return std::nullopt;
  return parseInt(text);
}

}  // namespace

std::optional<std::int32_t> keyOfName(std::u16string_view name) {
  for (const KeyName& key : names) {
    if (equalNoCase(key.name, name)) return key.code;
  }
  if (name.size() == 1) {
    const char16_t c = name.front();
    if (isDigit(c) || (c >= u'A' && c <= u'Z')) return c;
    if (c >= u'a' && c <= u'z') return c - u'a' + u'A';
    return std::nullopt;
  }
  if (equalNoCase(name.substr(0, 1), u"F")) {
    const auto number = smallNumber(name.substr(1));
    return number && *number >= 1 && *number <= functionKeys ? std::optional(beforeF1 + *number)
                                                             : std::nullopt;
  }
  const auto code = smallNumber(name);
  return code && *code <= highestCode ? code : std::nullopt;
}

}  // namespace tessera
