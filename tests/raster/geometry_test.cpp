#include "raster/picture.h"
#include "shared/screen.h"

namespace tessera {
namespace {

TEST(Fill, IsCutToTheSurface) {
  const struct {
    Rect area;
    Picture expected;
  } rows[] = {
      {{1, 1, 3, 2}, {"....", ".##.", "...."}},
      {{-5, -5, 1, 1}, {"#...", "....", "...."}},
      {{3, 2, 99, 99}, {"....", "....", "...#"}},
      {{least, 1, most, 2}, {"....", "####", "...."}},
      {{least, least, most, most}, {"####", "####", "####"}},
      {{3, 0, 1, 3}, {"....", "....", "...."}},
      {{most, least, least, most}, {"....", "....", "...."}},
  };
  for (const auto& row : rows) {
    WhiteCanvas canvas(4, 3);
    canvas.fill(row.area, black);
    EXPECT_EQ(pictureOf(canvas), row.expected) << row.area.left << ' ' << row.area.right;
  }
}

TEST(Blend, WeighsColoursExactly) {
  const struct {
    ColorRef under, over;
    std::uint8_t alpha;
    ColorRef expected;
  } rows[] = {
      {white, black, 0, white},
      {white, black, 255, black},
      {white, black, 1, rgb(254, 254, 254)},
      {white, black, 128, rgb(127, 127, 127)},
      {black, white, 128, rgb(128, 128, 128)},
      {rgb(10, 20, 30), rgb(200, 100, 50), 64, rgb(58, 40, 35)},
      {rgb(1, 254, 3), rgb(254, 1, 252), 254, rgb(253, 2, 251)},
  };
  for (const auto& row : rows) {
    WhiteCanvas canvas(3, 1);
    canvas.fill({0, 0, 3, 1}, row.under);
    canvas.blend({1, least, 2, most}, row.over, row.alpha);
    EXPECT_EQ(canvas.pixel(1, 0), pixelOf(row.expected)) << int{row.alpha};
    EXPECT_EQ(canvas.pixel(0, 0), pixelOf(row.under));
    EXPECT_EQ(canvas.pixel(2, 0), pixelOf(row.under));
  }
}

// Letters of the system colours, the screen's face as a point.
Picture edgePicture(const RasterCanvas& canvas) {
  Picture picture = pictureOf(canvas);
  for (std::int32_t y = 0; y < canvas.size().height; ++y) {
    for (std::int32_t x = 0; x < canvas.size().width; ++x) {
      const ColorRef color = colorOfPixel(canvas.pixel(x, y));
      picture[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] = color == screen().highlight    ? 'H'
                                                                          : color == screen().light      ? 'L'
                                                                          : color == screen().shadow     ? 's'
                                                                          : color == screen().darkShadow ? 'd'
                                                                          : color == screen().face       ? '.'
                                                                                                   : '?';
    }
  }
  return picture;
}

TEST(Edges, HaveTheSystemColours) {
  const struct {
    Edge edge;
    Rect area;
    Picture expected;
  } rows[] = {
      {Edge::RaisedInner, {0, 0, 4, 3}, {"HHHs", "H..s", "ssss"}},
      {Edge::SunkenInner, {0, 0, 4, 3}, {"dddL", "d..L", "LLLL"}},
      {Edge::RaisedOuter, {0, 0, 4, 3}, {"LLLd", "L..d", "dddd"}},
      {Edge::SunkenOuter, {0, 0, 4, 3}, {"sssH", "s..H", "HHHH"}},
      {Edge::RaisedInner, {1, 1, 3, 3}, {"....", ".Hs.", ".ss."}},
      {Edge::RaisedInner, {1, 1, 1, 3}, {"....", "....", "...."}},
      {Edge::RaisedInner, {-1, -1, 3, 2}, {"..s.", "sss.", "...."}},
      {Edge::RaisedInner, {1, 1, most, most}, {"....", ".HHH", ".H.."}},
      {Edge::RaisedInner, {least, least, 2, 2}, {".s..", "ss..", "...."}},
  };
  for (const auto& row : rows) {
    RasterCanvas canvas({4, 3});
    canvas.fill({0, 0, 4, 3}, screen().face);
    canvas.edge(row.area, row.edge);
    EXPECT_EQ(edgePicture(canvas), row.expected) << static_cast<int>(row.edge);
  }
}

TEST(FocusRect, InvertsEverySecondBorderPixel) {
  const struct {
    Rect area;
    Picture expected;
  } rows[] = {
      {{0, 0, 5, 4}, {"#.#.#", ".....", "#...#", ".#.#."}},
      {{1, 0, 5, 4}, {".#.#.", "....#", ".#...", "..#.#"}},
      {{2, 2, 3, 3}, {".....", ".....", "..#..", "....."}},
      {{-2, -3, 3, 2}, {".....", "#.#..", ".....", "....."}},
      {{least, least, most, most}, {".....", ".....", ".....", "....."}},
      {{least, 1, most, 3}, {".....", "#.#.#", ".#.#.", "....."}},
  };
  for (const auto& row : rows) {
    WhiteCanvas canvas(5, 4);
    canvas.focusRect(row.area);
    EXPECT_EQ(pictureOf(canvas), row.expected) << row.area.left << ' ' << row.area.top;
    canvas.focusRect(row.area);
    EXPECT_EQ(pictureOf(canvas), Picture(4, ".....")) << "the second time restores";
  }
  RasterCanvas canvas({1, 1});
  canvas.fill({0, 0, 1, 1}, rgb(10, 200, 255));
  canvas.focusRect({0, 0, 1, 1});
  EXPECT_EQ(canvas.pixel(0, 0), pixelOf(rgb(245, 55, 0)));
}

TEST(Surfaces, OfAnySizeCanBeMade) {
  const struct {
    Size wanted, expected;
  } rows[] = {
      {{0, 0}, {0, 0}}, {{least, 5}, {0, 5}}, {{3, -1}, {3, 0}}, {{1, most}, {1, RasterCanvas::maxSide}}};
  WhiteCanvas canvas(2, 2);
  for (const auto& row : rows) {
    const std::unique_ptr<Canvas> surface = canvas.createSurface(row.wanted);
    EXPECT_EQ(surface->size(), row.expected);
    surface->fill({least, least, most, most}, red);
    surface->edge({0, 0, 2, 2}, Edge::RaisedInner);
    surface->text({least, least, most, most}, 0, 0, {}, red, u"x");
    canvas.blitSurface({1, 1, 2, 2}, *surface, least, most);
  }
  EXPECT_EQ(pictureOf(canvas), (Picture{"..", ".."}));
}

}  // namespace
}  // namespace tessera
