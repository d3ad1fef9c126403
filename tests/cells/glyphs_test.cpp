#include "cells/glyphs.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace tessera {
namespace {

constexpr std::uint32_t key = pixelOf(glyphKey);

std::size_t keyPixels(Glyph glyph) {
  const Bitmap& bitmap = glyphBitmap(glyph);
  return static_cast<std::size_t>(std::count(bitmap.pixels.begin(), bitmap.pixels.end(), key));
}

TEST(Glyphs, SizesByNumber) {
  const struct {
    std::int32_t first, last;
    Size size;
  } ranges[] = {{208, 208, {8, 7}},   {211, 211, {8, 7}},   {212, 215, {10, 10}}, {217, 221, {10, 10}},
                {222, 222, {17, 17}}, {223, 224, {14, 14}}, {225, 225, {17, 17}}, {226, 227, {14, 14}}};
  std::set<std::int32_t> drawn;
  for (const auto& range : ranges) {
    for (std::int32_t number = range.first; number <= range.last; ++number) {
      EXPECT_EQ(glyphSize(static_cast<Glyph>(number)), range.size) << number;
      drawn.insert(number);
    }
  }
  EXPECT_EQ(drawn.size(), 17u);
  for (const std::int32_t number : {0, 207, 209, 210, 216, 228, 65535}) {
    EXPECT_EQ(glyphSize(static_cast<Glyph>(number)), Size{}) << number;
  }
}

TEST(Glyphs, EveryPictureIsDifferent) {
  std::set<std::vector<std::uint32_t>> pictures;
  for (std::int32_t number = 208; number <= 227; ++number) {
    const Bitmap& bitmap = glyphBitmap(static_cast<Glyph>(number));
    if (bitmap.width == 0) continue;
    EXPECT_TRUE(pictures.insert(bitmap.pixels).second) << number;
  }
}

// What shows through decides how a mark looks on another ground.
TEST(Glyphs, WhatShowsThrough) {
  EXPECT_EQ(keyPixels(Glyph::PopupButton), 0u);
  EXPECT_EQ(keyPixels(Glyph::DropButton), 0u);
  EXPECT_EQ(glyphBitmap(Glyph::CheckOff).at(7, 7), key);
  EXPECT_EQ(glyphBitmap(Glyph::RadioOff).at(7, 7), key);
  EXPECT_NE(glyphBitmap(Glyph::RadioOn).at(7, 7), key);
  EXPECT_GT(keyPixels(Glyph::CheckOff), keyPixels(Glyph::CheckOn));
  for (const Glyph light : {Glyph::LightGreen, Glyph::LightRed, Glyph::LightGrey}) {
    EXPECT_EQ(glyphBitmap(light).at(0, 0), key);
    EXPECT_NE(glyphBitmap(light).at(5, 5), key);
  }
}

TEST(Glyphs, SortTrianglesPointUpAndDown) {
  const Bitmap& up = glyphBitmap(Glyph::SortUp);
  const Bitmap& down = glyphBitmap(Glyph::SortDown);
  for (std::int32_t y = 0; y < up.height; ++y) {
    for (std::int32_t x = 0; x < up.width; ++x) EXPECT_EQ(up.at(x, y), down.at(x, up.height - 1 - y));
  }
  EXPECT_EQ(up.at(0, 1), key);
  EXPECT_NE(up.at(0, 4), key);
}

}  // namespace
}  // namespace tessera
