#include "config/color_words.h"

#include <algorithm>
#include <iterator>

#include "config/color_table.h"
#include "shared/compare.h"

namespace tessera {
namespace {

constexpr std::int32_t hexDigit(char16_t unit) {
  if (unit >= u'0' && unit <= u'9') return unit - u'0';
  if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
  if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
  return -1;
}

ColorRef parseHexColor(std::u16string_view digits) {
  // Where the digits of red, green and blue stand in a ColorRef, high digit first.
  static constexpr std::int32_t shifts[] = {4, 0, 12, 8, 20, 16};
  ColorRef color = 0;
  for (std::size_t i = 0; i < std::min(digits.size(), std::size(shifts)); ++i) {
    const std::int32_t digit = hexDigit(digits[i]);
    if (digit < 0) break;
    color |= static_cast<ColorRef>(digit) << shifts[i];
  }
  return color;
}

constexpr char16_t lowerAscii(char16_t unit) {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

// Cells ask for colours by name while they are painted, hence no walk through the table.
ColorRef findNamedColor(std::u16string_view text) {
  if (text.size() > longestColorName) return noColor;
  std::array<char16_t, longestColorName> folded{};
  std::transform(text.begin(), text.end(), folded.begin(), lowerAscii);
  const std::u16string_view name(folded.data(), text.size());

  const auto sorted = namedColors.begin() + firstSortedColor;
  const auto isName = [name](const NamedColor& row) { return row.name == name; };
  const auto first = std::find_if(namedColors.begin(), sorted, isName);
  if (first != sorted) return first->value;
  const auto row = std::lower_bound(sorted, namedColors.end(), name,
                                    [](const NamedColor& a, std::u16string_view b) { return a.name < b; });
  return row != namedColors.end() && isName(*row) ? row->value : noColor;
}

}  // namespace

ColorRef parseColor(std::u16string_view text) {
  if (text.empty()) return noColor;
  if (text.front() == u'#') return parseHexColor(text.substr(1));
  if (text.front() >= u'0' && text.front() <= u'9') return static_cast<ColorRef>(parseInt(text));
  return findNamedColor(text);
}

XString colorToText(ColorRef color) {
  static constexpr char16_t digits[] = u"0123456789abcdef";
  std::array<char16_t, 7> text{u'#'};
  auto out = text.begin() + 1;
  for (const std::uint8_t part : {redOf(color), greenOf(color), blueOf(color)}) {
    *out++ = digits[part >> 4];
    *out++ = digits[part & 15];
  }
  return std::u16string_view(text.data(), text.size());
}

}  // namespace tessera
