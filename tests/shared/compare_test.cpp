#include "shared/compare.h"

#include <tessera/xstring.h>

#include "tests/support/text_rows.h"

namespace tessera {
namespace {

TEST(Compare, DifferenceOfCodeUnits) {
  struct Row {
    const char16_t *a, *b;
    std::int32_t exact, noCase;
  };
  constexpr Row rows[] = {{nullptr, u"", 0, 0},
                          {nullptr, u"z", -1, -1},
                          {u"", u"z", -'z', -'z'},
                          {u"Center", u"cENTER", 'C' - 'c', 0},
                          {u"ab", u"abc", -'c', -'c'},
                          {u"abC", u"ab", 'C', 'c'},
                          {u"a", u"c", -2, -2},
                          {u"[", u"a", '[' - 'a', '[' - 'a'},
                          {u"@", u"`", '@' - '`', '@' - '`'},
                          {u"\u00C4", u"\u00E4", -0x20, -0x20},
                          {u"\uFF21", u"\uFF41", -0x20, -0x20},
                          {u"\uAC00x", u"\uAC00X", 'x' - 'X', 0},
                          {u"\uFFFF", u"a", 0xFFFF - 'a', 0xFFFF - 'a'}};
  for (const Row& row : rows) {
    const auto index = &row - rows;
    EXPECT_EQ(compareExact(viewOf(row.a), viewOf(row.b)), row.exact) << index;
    EXPECT_EQ(compareExact(viewOf(row.b), viewOf(row.a)), -row.exact) << index;
    EXPECT_EQ(compareNoCase(viewOf(row.a), viewOf(row.b)), row.noCase) << index;
    EXPECT_EQ(equalNoCase(viewOf(row.b), viewOf(row.a)), row.noCase == 0) << index;
  }
}

TEST(Compare, ParseInt) {
  for (const auto& [text, number] : test::textRows(R"(
12 => 12 |  	12px => 12 | -7 => -7 | +7 => 7 | +-7 => 0 | - 7 => 0 | x1 => 0 | 1.9 => 1 | 0x10 => 0 | 007 => 7
１ => 0 | 1가 => 1 | 2147483647 => 2147483647 | 2147483648 => 2147483647 | -2147483648 => -2147483648
-99999999999999999 => -2147483648 | 9999999999999999999 => 2147483647 |                  12345 => 12
                   1 => 0 | 00000000000000000012 => 1)")) {
    EXPECT_EQ(std::to_string(parseInt(XString::fromNarrow(text))), number) << text;
  }
  EXPECT_EQ(parseInt(viewOf(nullptr)) + parseInt(u""), 0);
  EXPECT_EQ(parseInt(u" \t\r\n\v\f12px"), 12);
}

}  // namespace
}  // namespace tessera
