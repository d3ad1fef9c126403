#include "backends/raster/bidi_levels.h"

#include <gtest/gtest.h>
#include <string>

namespace tessera {
namespace {

TEST(BidiLevels, FollowTheNeighbours) {
  const struct {
    std::u32string_view text;
    std::string_view levels;
  } rows[] = {
      {U"", ""},
      {U"abc 12", "000000"},
      {U"אבג", "111"},
      {U"a אב b", "001100"},
      {U"אב גד", "11111"},
      {U"אב. a", "11000"},
      {U"א 12 ב", "112211"},
      {U"12 א", "0001"},
      {U"א 12", "1122"},
      {U"א 1,234.5", "112222222"},
      {U"א 1, 2", "112112"},
      {U"א 5%", "1122"},
      {U"א $5", "1122"},
      {U"א 1-2", "11222"},
      {U"a 12 א", "000001"},
      {U"א\u05B0ב", "111"},
      {U"a\u0301א", "001"},
      {U"ع ١٢٣", "11222"},
      {U"١٢ a", "2200"},
      {U"(א)", "010"},
      {U"א(ב)ג", "11111"},
      {U"a\u200Fb", "010"},
      {U"א\u202Eab", "1000"},
      {U"!?", "00"},
  };
  std::vector<std::uint8_t> levels;
  for (const auto& row : rows) {
    bidiLevels(row.text, levels);
    std::string found;
    for (const std::uint8_t level : levels) found += static_cast<char>('0' + level);
    EXPECT_EQ(found, row.levels) << row.text.size();
  }
}

}  // namespace
}  // namespace tessera
