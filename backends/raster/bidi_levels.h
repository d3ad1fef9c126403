// Directions within a line that runs from left to right, by FriBidi.

#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace tessera {

// The level of every character by the Unicode bidirectional algorithm for a left-to-right paragraph: odd for
// right to left. Embeddings, overrides and isolates are not obeyed, so no text can turn the rest of its line
// around.
void bidiLevels(std::u32string_view text, std::vector<std::uint8_t>& levels);

// Whether the level of what follows may depend on the character, as the first of a pair of brackets.
bool opensPair(char32_t codePoint);

}  // namespace tessera
