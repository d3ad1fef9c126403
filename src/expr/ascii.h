// What the language knows of characters: ASCII alone.

#pragma once

#include <string_view>

namespace tessera {

constexpr bool isTrimmed(char16_t unit) { return unit == u' ' || unit == u'\t'; }

constexpr std::u16string_view trimLeft(std::u16string_view text) {
  while (!text.empty() && isTrimmed(text.front())) text.remove_prefix(1);
  return text;
}

constexpr std::u16string_view trimRight(std::u16string_view text) {
  while (!text.empty() && isTrimmed(text.back())) text.remove_suffix(1);
  return text;
}

constexpr char16_t lowerUnit(char16_t unit) {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

constexpr char16_t upperUnit(char16_t unit) {
  return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - (u'a' - u'A')) : unit;
}

}  // namespace tessera
