// The two string comparisons that decide all keyword matching, and the number rule of attribute texts.

#pragma once

#include <cstdint>
#include <string_view>

namespace tessera {

// The view of a zero-terminated text; a null pointer counts as the empty text.
constexpr std::u16string_view viewOf(const char16_t* text) {
  return text ? std::u16string_view(text) : std::u16string_view();
}

// The difference of the first code units that differ, the end counting as unit 0; 0 when equal. A view
// without storage is the null text: -1 against a text that is not empty, 1 the other way round.
std::int32_t compareExact(std::u16string_view a, std::u16string_view b);

// The same after folding the ASCII letters A to Z; no other code unit is folded.
std::int32_t compareNoCase(std::u16string_view a, std::u16string_view b);

inline bool equalNoCase(std::u16string_view a, std::u16string_view b) { return compareNoCase(a, b) == 0; }

// The number that an attribute text starts with: white space, a sign, digits up to the first other
// character; 0 without digits. Only the first 19 characters count, and the result is clamped to 32 bits.
std::int32_t parseInt(std::u16string_view text);

}  // namespace tessera
