// Rectangles, rounding of measures, the screen and font descriptions.

#include <gtest/gtest.h>
#include <limits>

#include "shared/log_font.h"
#include "shared/rect.h"
#include "shared/screen.h"

namespace tessera {
namespace {

constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();

TEST(Measure, MulDiv) {
  struct Row {
    std::int32_t value, numerator, denominator, expected;
  };
  constexpr Row rows[] = {{10, 96, 72, 13},
                          {7, 96, 72, 9},
                          {1, 1, 2, 1},
                          {-1, 1, 2, -1},
                          {1, -1, 2, -1},
                          {1, 1, -2, -1},
                          {-1, -1, 2, 1},
                          {-1, 1, -2, 1},
                          {1, 1, 3, 0},
                          {2, 1, 3, 1},
                          {-2, 1, 3, -1},
                          {5, 7, 0, -1},
                          {0, 0, 0, -1},
                          {most, 2, 2, most},
                          {most, 2, 1, -1},
                          {least, 1, 1, least},
                          {least, 1, -1, -1},
                          {least, least, 1, -1},
                          {least, least, least, least},
                          {most, most, least, -most + 1},
                          {1, 1, most, 0}};
  for (const Row& row : rows) {
    EXPECT_EQ(mulDiv(row.value, row.numerator, row.denominator), row.expected)
        << row.value << '*' << row.numerator << '/' << row.denominator;
  }
}

TEST(Measure, RectanglesStayWithin32Bits) {
  const Rect all{least, least, most, most};
  EXPECT_EQ(all.width(), most);
  EXPECT_FALSE(all.empty());
  EXPECT_EQ(addClamped(most, 1), most);
  EXPECT_EQ(subClamped(least, 1), least);
  EXPECT_EQ(mulClamped(least, 2), least);
  const Rect rect{2, 3, 5, 7};
  EXPECT_TRUE(rect.holds(2, 3));
  EXPECT_TRUE(rect.holds(4, 6));
  EXPECT_FALSE(rect.holds(5, 6));
  EXPECT_FALSE(rect.holds(4, 7));
  EXPECT_EQ(intersect(rect, {4, 0, 9, 5}), (Rect{4, 3, 5, 5}));
  EXPECT_TRUE(intersect(rect, {5, 3, 9, 9}).empty());
}

TEST(Measure, PointsFollowTheScreen) {
  const Screen before = screen();
  struct Row {
    std::int32_t dotsPerInch, points, height;
  };
  constexpr Row rows[] = {{96, 9, -12}, {96, 10, -13}, {96, 0, 0}, {120, 9, -15}, {72, 11, -11}};
  for (const Row& row : rows) {
    Screen changed = before;
    changed.dotsPerInch = row.dotsPerInch;
    setScreen(changed);
    EXPECT_EQ(pointsToHeight(row.points), row.height);
    EXPECT_EQ(heightToPoints(row.height), row.points);
  }
  setScreen(before);
}

TEST(Measure, FaceNamesAreCutBetweenCharacters) {
  const std::string korean = "\xEA\xB0\x80";
  const std::pair<std::string, std::string> rows[] = {
      {"", ""},
      {std::string(32, 'a'), std::string(31, 'a')},
      {std::string(28, 'a') + korean, std::string(28, 'a') + korean},
      {std::string(29, 'a') + korean, std::string(29, 'a')},
      {std::string(31, 'a') + korean, std::string(31, 'a')},
      {std::string("a\0b", 3), "a"}};
  for (const auto& [name, face] : rows) {
    LogFont font, direct;
    font.setFace("some other name that was here");
    font.setFace(name);
    direct.setFace(face);
    EXPECT_EQ(font.face(), face);
    EXPECT_EQ(font, direct) << "no bytes of the old name may stay behind the end";
    EXPECT_EQ(std::hash<LogFont>{}(font), std::hash<LogFont>{}(direct));
  }
}

}  // namespace
}  // namespace tessera
