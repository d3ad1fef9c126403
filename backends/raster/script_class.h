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

// Unpaired surrogates count as Simple: they are shown as U+FFFD. The tab counts as Simple too, shown as a
// space.
ScriptClass scriptClass(char32_t codePoint);

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
