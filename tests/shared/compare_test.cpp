#include "shared/compare.h"

#include <gtest/gtest.h>
#include <limits>

namespace tessera {
namespace {

TEST(Compare, DifferenceOfCodeUnits) {
  struct Row {
    const char16_t *a, *b;
    std::int32_t exact, noCase;
  };
  constexpr Row rows[] = {
      {nullptr, nullptr, 0, 0},
      {nullptr, u"", 0, 0},
      {u"", nullptr, 0, 0},
      {nullptr, u"z", -1, -1},
      {u"z", nullptr, 1, 1},
      {u"", u"z", -'z', -'z'},
      {u"center", u"center", 0, 0},
      {u"Center", u"cENTER", 'C' - 'c', 0},
      {u"ab", u"abc", -'c', -'c'},
      {u"abC", u"ab", 'C', 'c'},
      {u"a", u"c", -2, -2},
      {u"[", u"a", '[' - 'a', '[' - 'a'},
      {u"@", u"`", '@' - '`', '@' - '`'},
      {u"\u00C4", u"\u00E4", -0x20, -0x20},
      {u"\uFF21", u"\uFF41", -0x20, -0x20},
      {u"\uAC00x", u"\uAC00X", 'x' - 'X', 0},
      {u"\uFFFF", u"a", 0xFFFF - 'a', 0xFFFF - 'a'},
  };
  for (const Row& row : rows) {
    const auto index = &row - rows;
    EXPECT_EQ(compareExact(viewOf(row.a), viewOf(row.b)), row.exact) << index;
    EXPECT_EQ(compareExact(viewOf(row.b), viewOf(row.a)), -row.exact) << index;
    EXPECT_EQ(compareNoCase(viewOf(row.a), viewOf(row.b)), row.noCase) << index;
    EXPECT_EQ(equalNoCase(viewOf(row.b), viewOf(row.a)), row.noCase == 0) << index;
  }
}

TEST(Compare, ParseInt) {
  struct Row {
    const char16_t* text;
    std::int32_t expected;
  };
  constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
  constexpr Row rows[] = {
      {nullptr, 0},
      {u"", 0},
      {u"12", 12},
      {u" \t\r\n\v\f12px", 12},
      {u"-7", -7},
      {u"+7", 7},
      {u"+-7", 0},
      {u"- 7", 0},
      {u"x1", 0},
      {u"1.9", 1},
      {u"0x10", 0},
      {u"007", 7},
      {u"\uFF11", 0},
      {u"1\uAC00", 1},
      {u"2147483647", most},
      {u"2147483648", most},
      {u"-2147483648", least},
      {u"-99999999999999999", least},
      {u"9999999999999999999", most},
      {u"                 12345", 12},
      {u"                   1", 0},
      {u"00000000000000000012", 1},
  };
  for (const Row& row : rows) EXPECT_EQ(parseInt(viewOf(row.text)), row.expected) << &row - rows;
}

}  // namespace
}  // namespace tessera
