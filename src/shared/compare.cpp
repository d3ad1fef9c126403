#include "shared/compare.h"

#include <algorithm>
#include <limits>

namespace tessera {
namespace {

constexpr char16_t same(char16_t unit) { return unit; }

constexpr char16_t lowerAscii(char16_t unit) {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

template <char16_t (*fold)(char16_t)>
std::int32_t compareFolded(std::u16string_view a, std::u16string_view b) {
  if (!a.data() && !b.empty()) return -1;
  if (!b.data() && !a.empty()) return 1;
  const std::size_t length = std::max(a.size(), b.size());
  for (std::size_t i = 0; i < length; ++i) {
    const std::int32_t difference = (i < a.size() ? fold(a[i]) : 0) - (i < b.size() ? fold(b[i]) : 0);
    if (difference != 0) return difference;
  }
  return 0;
}

constexpr bool isSpace(char16_t unit) { return unit == u' ' || (unit >= u'\t' && unit <= u'\r'); }

}  // namespace

std::int32_t compareExact(std::u16string_view a, std::u16string_view b) { return compareFolded<same>(a, b); }

std::int32_t compareNoCase(std::u16string_view a, std::u16string_view b) {
  return compareFolded<lowerAscii>(a, b);
}

std::int32_t parseInt(std::u16string_view text) {
  constexpr std::size_t readUnits = 19;
  constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
  text = text.substr(0, readUnits);
  std::size_t at = 0;
  while (at < text.size() && isSpace(text[at])) ++at;
  const bool negative = at < text.size() && text[at] == u'-';
  if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) ++at;
  std::int64_t number = 0;
  for (; at < text.size() && text[at] >= u'0' && text[at] <= u'9'; ++at) {
    number = std::min(number * 10 + (text[at] - u'0'), most + 1);
  }
  return static_cast<std::int32_t>(negative ? -number : std::min(number, most));
}

}  // namespace tessera
