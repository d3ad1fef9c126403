// Directions within a line that runs from left to right.

#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace tessera {

// The level of every character by the rules of the Unicode bidirectional algorithm for a left-to-right
// paragraph: 0 for left to right, 1 for right to left, 2 for numbers within right to left. Embeddings,
// overrides and isolates are not obeyed, so no text can turn the rest of its line around.
void bidiLevels(std::u32string_view text, std::vector<std::uint8_t>& levels);

}  // namespace tessera
