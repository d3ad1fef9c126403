// Which characters can be drawn one by one, and how UTF-16 becomes characters.

#pragma once

#include <cstdint>
#include <string_view>

namespace tessera {

enum class ScriptClass {
  Control,  // draws nothing and takes no room
  Simple,   // one glyph, the same in every company, written from left to right
  Shaped,   // depends on its neighbours: marks, joining and right-to-left scripts, invisible signs
};

// Unpaired surrogates count as Simple: they are shown as U+FFFD. What is shown as a space counts as Simple,
// too.
ScriptClass scriptClass(char32_t codePoint);

// The tab and the ends of lines. A carriage return goes with the line feed behind it.
constexpr bool isShownAsSpace(char32_t codePoint) {
  return codePoint == U'\t' || codePoint == U'\n' || codePoint == 0x85 || codePoint == 0x2028 ||
         codePoint == 0x2029;
}

constexpr bool isSurrogate(char32_t value) { return value >= 0xD800 && value <= 0xDFFF; }
constexpr bool isHighSurrogate(char32_t value) { return value >= 0xD800 && value <= 0xDBFF; }
constexpr bool isLowSurrogate(char32_t value) { return value >= 0xDC00 && value <= 0xDFFF; }

// The character at `place`, which moves behind it. An unpaired surrogate comes back as it is.
inline char32_t nextCodePoint(std::u16string_view text, std::size_t& place) {
  const char32_t unit = text[place++];
  if (!isHighSurrogate(unit) || place == text.size() || !isLowSurrogate(text[place])) return unit;
  return 0x10000 + ((unit - 0xD800) << 10) + (text[place++] - 0xDC00u);
}

}  // namespace tessera
