#include "backends/raster/line_painter.h"

#include <array>
#include <cmath>
#include <random>

#include "raster/picture.h"

namespace tessera {
namespace {

TEST(Polyline, DrawsAllEnds) {
  const struct {
    std::vector<Point> points;
    std::int32_t width;
    Picture expected;
  } rows[] = {
      {{{1, 0}, {1, 2}}, -7, {".#...", ".#...", ".#...", "....."}},
      {{{0, 0}, {4, 0}, {4, 3}, {0, 3}, {0, 0}}, 1, {"#####", "#...#", "#...#", "#####"}},
      {{{2, 2}}, 1, {".....", ".....", ".....", "....."}},
      {{}, 1, {".....", ".....", ".....", "....."}},
      {{{least, 1}, {most, 1}}, 1, {".....", "#####", ".....", "....."}},
      {{{2, most}, {2, least}}, 1, {"..#..", "..#..", "..#..", "..#.."}},
      {{{least, least}, {most, most}}, 1, {"#....", ".#...", "..#..", "...#."}},
      {{{most, most}, {least, least}}, 1, {"#....", ".#...", "..#..", "...#."}},
      {{{least, most}, {most, most}}, 1, {".....", ".....", ".....", "....."}},
      {{{least, 0}, {most, 1}}, most, {"#####", "#####", "#####", "#####"}},
      {{{most, 0}, {most, most}}, most, {".....", ".....", ".....", "....."}},
  };
  for (const auto& row : rows) {
    WhiteCanvas canvas(5, 4);
    canvas.polyline(row.points, black, row.width);
    EXPECT_EQ(pictureOf(canvas), row.expected)
        << ::testing::PrintToString(row.points.size()) << ' ' << row.width;
  }
}

// The same line, one stamp of the pen after the other.
void stampLine(RasterCanvas& canvas, Point from, Point to, std::int32_t width) {
  const std::int32_t dx = to.x - from.x, dy = to.y - from.y;
  const std::int32_t length = std::max(std::abs(dx), std::abs(dy));
  const auto moved = [&](std::int32_t step, std::int32_t delta) {
    if (length == 0) return 0;
    const auto whole = static_cast<std::int32_t>(std::floor(double(step) * std::abs(delta) / length + 0.5));
    return delta < 0 ? -whole : whole;
  };
  for (std::int32_t step = 0; step <= length; ++step) {
    const std::int32_t left = from.x + moved(step, dx) - width / 2,
                       top = from.y + moved(step, dy) - width / 2;
    canvas.fill({left, top, left + width, top + width}, black);
  }
}

TEST(Polyline, IsTheTraceOfASquarePen) {
  std::mt19937 random(7);
  const auto within = [&](std::int32_t low, std::int32_t high) {
    return low + static_cast<std::int32_t>(random() % static_cast<unsigned>(high - low + 1));
  };
  for (int round = 0; round < 400; ++round) {
    const Point from{within(-30, 50), within(-30, 50)}, to{within(-30, 50), within(-30, 50)};
    const std::int32_t width = within(1, 6);
    WhiteCanvas drawn(24, 20), stamped(24, 20);
    drawn.polyline(std::array{from, to}, black, width);
    stampLine(stamped, from, to, width);
    ASSERT_EQ(pictureOf(drawn), pictureOf(stamped))
        << from.x << ',' << from.y << " to " << to.x << ',' << to.y << " width " << width;
  }
}

}  // namespace
}  // namespace tessera
