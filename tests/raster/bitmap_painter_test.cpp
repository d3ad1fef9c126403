#include "backends/raster/bitmap_painter.h"

#include "raster/picture.h"

namespace tessera {
namespace {

const Picture empty(3, "....");

TEST(Blit, TakesThePartOfTheSource) {
  const Bitmap source = bitmapOf({"rgb", "bbr"});
  const struct {
    Rect area;
    std::int32_t sourceX, sourceY;
    Picture expected;
  } rows[] = {
      {{0, 0, 3, 2}, 0, 0, {"rgb.", "bbr.", "...."}},
      {{1, 1, 3, 3}, 1, 0, {"....", ".gb.", ".br."}},
      {{-1, -1, 2, 1}, 0, 0, {"br..", "....", "...."}},
      {{0, 0, 4, 3}, 0, 0, {"rgb.", "bbr.", "...."}},
      {{0, 0, 4, 3}, -1, -1, {"....", ".rgb", ".bbr"}},
      {{0, 0, 4, 3}, 3, 0, empty},
      {{0, 0, 4, 3}, least, least, empty},
      {{least, least, most, most}, least, least, {"rgb.", "bbr.", "...."}},
      {{least, least, most, most}, 0, 0, empty},
  };
  for (const auto& row : rows) {
    WhiteCanvas canvas(4, 3);
    canvas.blit(row.area, source, row.sourceX, row.sourceY);
    EXPECT_EQ(pictureOf(canvas), row.expected) << row.area.left << ' ' << row.sourceX;
  }
}

TEST(Stretch, RepeatsAndLeavesOutPixels) {
  const struct {
    Picture source;
    Rect area;
    Picture expected;
  } rows[] = {
      {{"rg", "b#"}, {0, 0, 4, 3}, {"rrgg", "rrgg", "bb##"}},
      {{"rgb#"}, {0, 0, 2, 1}, {"rb..", "....", "...."}},
      {{"rgb"}, {0, 0, 2, 1}, {"rg..", "....", "...."}},
      {{"rg"}, {0, 0, 3, 1}, {"rrg.", "....", "...."}},
      {{"rgb"}, {-2, 0, 4, 1}, {"ggbb", "....", "...."}},
      {{"rg"}, {2, -1, 6, 1}, {"..rr", "....", "...."}},
      {{"rg", "b#"}, {least, least, most, most}, {"####", "####", "####"}},
      {{"rg"}, {3, 0, 1, 3}, empty},
  };
  for (const auto& row : rows) {
    WhiteCanvas canvas(4, 3);
    canvas.stretch(row.area, bitmapOf(row.source));
    EXPECT_EQ(pictureOf(canvas), row.expected) << row.source.front() << ' ' << row.area.left;
  }
  WhiteCanvas canvas(2, 2);
  canvas.stretch({0, 0, 2, 2}, Bitmap());
  EXPECT_EQ(pictureOf(canvas), (Picture{"..", ".."}));
}

TEST(BlitKeyed, LeavesTheKeyOut) {
  const Bitmap source = bitmapOf({"rgb#", "bbr#"});
  const struct {
    Rect area, from;
    ColorRef key;
    Picture expected;
  } rows[] = {
      {{0, 0, 4, 2}, {0, 0, 4, 2}, blue, {"rg.#", "..r#", "...."}},
      {{0, 0, 4, 2}, {0, 0, 2, 1}, red, {"..gg", "..gg", "...."}},
      {{1, 1, 3, 3}, {2, 0, 4, 2}, black, {"....", ".b..", ".r.."}},
      {{0, 0, 4, 1}, {-1, 0, 3, 1}, noColor, {".rgb", "....", "...."}},
      {{0, 0, 4, 1}, {2, 1, 6, 2}, noColor, {"r#..", "....", "...."}},
      {{0, 0, 4, 3}, {least, least, most, most}, noColor, {"....", "....", "...."}},
      {{least, least, most, most}, {least, least, most, most}, noColor, {"rgb#", "bbr#", "...."}},
      {{0, 0, 4, 3}, {most, 0, least, 1}, noColor, empty},
  };
  for (const auto& row : rows) {
    WhiteCanvas canvas(4, 3);
    canvas.blitKeyed(row.area, source, row.from, row.key);
    EXPECT_EQ(pictureOf(canvas), row.expected) << row.area.left << ' ' << row.from.left;
  }
}

TEST(BlitKeyed, IgnoresTheAlphaOfSourceAndKey) {
  Bitmap source = bitmapOf({"rw"});
  source.pixels[1] = 0x80FFFFFF;
  RasterCanvas canvas({2, 1});
  canvas.fill({0, 0, 2, 1}, black);
  canvas.blitKeyed({0, 0, 2, 1}, source, {0, 0, 2, 1}, white);
  EXPECT_EQ(pictureOf(canvas), (Picture{"r#"}));
  EXPECT_EQ(canvas.pixel(0, 0), pixelOf(red));
}

// Every way of drawing a bitmap onto a blue surface, pixel by pixel.
TEST(TranslucentBitmap, IsLaidOverWhatIsThere) {
  Bitmap source(5, 1);
  source.pixels = {0x00FFFFFF, 0xFFFF0000, 0x80FFFFFF, 0x01FF0000, 0x8000FF00};
  const std::vector<std::uint32_t> composed{0xFF0000FF, 0xFFFF0000, 0xFF8080FF, 0xFF0100FE, 0xFF00807F};
  const std::vector<std::uint32_t> keyed{0xFF0000FF, 0xFFFF0000, 0xFF8080FF, 0xFF0100FE, 0xFF0000FF};
  std::vector<std::uint32_t> copied;
  for (const std::uint32_t pixel : source.pixels) copied.push_back(pixel | 0xFF000000);
  const auto drawn = [](auto draw) {
    RasterCanvas canvas({5, 1});
    canvas.fill({0, 0, 5, 1}, blue);
    draw(canvas);
    return canvas.snapshot().pixels;
  };
  constexpr Rect all{0, 0, 5, 1};
  const auto blit = [&](Canvas& canvas) { canvas.blit(all, source, 0, 0); };
  const auto stretch = [&](Canvas& canvas) { canvas.stretch(all, source); };
  const auto blitKeyed = [&](Canvas& canvas) { canvas.blitKeyed(all, source, all, green); };
  EXPECT_EQ(drawn(blit), copied);
  EXPECT_EQ(drawn(stretch), copied);
  Bitmap opaque(2, 2);
  opaque.findTranslucent();
  EXPECT_FALSE(opaque.translucent);
  source.findTranslucent();
  ASSERT_TRUE(source.translucent);
  EXPECT_EQ(drawn(blit), composed);
  EXPECT_EQ(drawn(stretch), composed);
  EXPECT_EQ(drawn(blitKeyed), keyed);
  EXPECT_EQ(drawn([&](Canvas& canvas) { canvas.blit({-1, 0, 4, 1}, source, 0, 0); })[1], composed[2]);
}

TEST(BlitSurface, ScrollsASurfaceOverItself) {
  const struct {
    Rect area;
    std::int32_t sourceX, sourceY;
    Picture expected;
  } rows[] = {
      {{0, 1, 4, 4}, 0, 0, {"rgb#", "rgb#", "gb#r", "b#rg"}},
      {{0, 0, 4, 3}, 0, 1, {"gb#r", "b#rg", "#rgb", "#rgb"}},
      {{1, 0, 4, 4}, 0, 0, {"rrgb", "ggb#", "bb#r", "##rg"}},
      {{0, 0, 3, 4}, 1, 0, {"gb##", "b#rr", "#rgg", "rgbb"}},
      {{1, 1, 4, 4}, 0, 0, {"rgb#", "grgb", "bgb#", "#b#r"}},
  };
  for (const auto& row : rows) {
    WhiteCanvas canvas(4, 4);
    canvas.blit({0, 0, 4, 4}, bitmapOf({"rgb#", "gb#r", "b#rg", "#rgb"}), 0, 0);
    canvas.blitSurface(row.area, canvas, row.sourceX, row.sourceY);
    EXPECT_EQ(pictureOf(canvas), row.expected) << row.area.left << ' ' << row.area.top;
  }
}

}  // namespace
}  // namespace tessera
