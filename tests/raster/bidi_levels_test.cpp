#include "backends/raster/bidi_levels.h"

#include <gtest/gtest.h>
#include <string>

namespace tessera {
namespace {

TEST(BidiLevels, OfMixedLines) {
  const struct {
    std::u32string_view text;
    std::string_view levels;
  } rows[] = {
      {U"א 1,234.5", "112222222"},
      {U"a\u0301א", "001"},
      {U"a 12 א", "000001"},
      {U"ع ١٢٣", "11222"},
      {U"١٢ a", "2200"},
      {U"a\u200Fb", "010"},
      {U"א (b) ג", "1000001"},
      {U"(x א) ב", "0001001"},  // a pair goes with the line for what stands in it
      {U"א (b [ג] d) ה", "1000001000001"},
      {U"א [(ב)] ג", "111111111"},
      {U"ع 1/2", "11222"},  // digits after Arabic letters are Arabic numbers
      {U"ع 5% ع", "112111"},
      {U"ع 1-2 b", "1121200"},
      {U"א 5% ב", "112211"},
      {U"א\u202Eab", "1100"},  // an override, an isolate without end
      {U"א\u2067ab c", "110000"},
  };
  std::vector<std::uint8_t> levels;
  for (const auto& row : rows) {
    bidiLevels(row.text, levels);
    std::string found;
    for (const std::uint8_t level : levels) found += static_cast<char>('0' + level);
    EXPECT_EQ(found, row.levels) << &row - rows;
  }
}

}  // namespace
}  // namespace tessera
