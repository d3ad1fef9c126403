#include "cells/glyphs.h"

#include <gtest/gtest.h>
#include <set>

namespace tessera {
namespace {

TEST(Glyphs, SizesByNumber) {
  const struct {
    std::int32_t first, last;
    Size size;
  } ranges[] = {{208, 208, {8, 7}},   {211, 211, {8, 7}},   {212, 215, {10, 10}}, {217, 221, {10, 10}},
                {222, 222, {17, 17}}, {223, 224, {14, 14}}, {225, 225, {17, 17}}, {226, 227, {14, 14}}};
  std::set<std::int32_t> drawn;
  std::set<std::vector<std::uint32_t>> pictures;
  for (const auto& range : ranges) {
    for (std::int32_t number = range.first; number <= range.last; ++number) {
      EXPECT_EQ(glyphSize(static_cast<Glyph>(number)), range.size) << number;
      drawn.insert(number);
      EXPECT_TRUE(pictures.insert(glyphBitmap(static_cast<Glyph>(number)).pixels).second) << number;
    }
  }
  EXPECT_EQ(drawn.size(), 17u);
  for (const std::int32_t number : {0, 207, 209, 210, 216, 228, 65535}) {
    EXPECT_EQ(glyphSize(static_cast<Glyph>(number)), Size{}) << number;
  }
}

}  // namespace
}  // namespace tessera
