#include "config/display_format.h"

#include "tests/support/text_rows.h"

namespace tessera {
namespace {

TEST(DisplayFormat, Rows) {
  for (const auto& [row, expected] : test::textRows(R"(
#,###.00: 1234567.891 => 1,234,567.89 | #,###.00: 1234567.8 => 1,234,567.80 | #,###.00: 0.999 => 0.99
#,###.00: 1.2.3 => 1.2. | #,###.00: .5 => .50 | #,###.##: 1234567.891 => 1,234,567.89
#,###.##: 1234567.8 => 1,234,567.8 | #,###.##: 1234567 => 1,234,567 | #,###.##: 1234567.00 => 1,234,567
#,###.0#: 5 => 5.0 | #,###.0#: 5.25 => 5.25 | #,###.#0: 5.20 => 5.2 | #,##0: 0 => 0 | #,##0: 100 => 100
#,##0: 1000 => 1,000 | #,##0: 1234.99 => 1,234 | #,##0: -123456 => -123,456 | #,##0: -123 => -123
#,##0: -1234 => -1,234 | #,##0: 123-456 => 123-,456 | #,##0: abcdef => abc,def | #,#0: 12345 => 1,23,45
#,0: 12345 => | #.##0: 1234567 => 1.234.567 | # ###,00: 1234.5 => 1 234,50 | $ #,##0 won: 1234 => $ 1,234 won
#,###.0 won: 1234 => 1,234.0 won | (#,##0): 7 => (7) | ###: 1234567.8 => 1234567 | ##0: 1234567.8 => 1234567
##.00: 1234.5 => 1234.50 | ##.#: 1234.5 => 1234.5 | #!,##0: 1234 => 1,234 | #!###0: 1234 => 1#234
#,##0!0: 1234 => 1,2340 | !##,##0: 1234 => #1,234 | #,##0!: 1234 => 1,234 | #,###.0!: 1234 => 1,234.0
#,##0!!: 1234 => 1,234! | XXXX-XX-XX: 20071231 => 2007-12-31 | XXXX-XX-XX: 2007 => 2007-- | XX: 20071231 => 20
!#XX: 12 => #12 | !XX!X: 12 => X1X | !!X: 1 => !1 | X!: 1 => 1 | !0X: 1 => 01 | x-X: 1 => x-1 | abc: 1 => abc
!: 1 =>)")) {
    const std::size_t colon = row.find(": ");
    const XString format = XString::fromNarrow(row.substr(0, colon)),
                  text = XString::fromNarrow(row.substr(colon + 2));
    EXPECT_EQ(applyDisplayFormat(format, text).toUtf8(), expected) << row;
    EXPECT_TRUE(applyDisplayFormat(format, u"").empty()) << row;
  }
  EXPECT_TRUE(applyDisplayFormat(u"", u"1").empty());
}

TEST(DisplayFormat, FaultyOnesShowNothing) {
  for (const char16_t* format :
       {u"#,###", u"#,##0.00", u"0.00", u"###.00", u"####", u"#", u"##", u"#0", u"#,", u"#,,##0", u"#,###.",
        u"#,###..00", u"#,##0#", u"#,##0 0", u"X#", u"#X", u"X0", u"#,##0X"}) {
    EXPECT_EQ(applyDisplayFormat(format, u"1234").toUtf8(), "") << XString(format).toUtf8();
  }
}

TEST(DisplayFormat, NumbersAlone) {
  const NumberFormat grouped{.groupSeparator = u',', .decimalSeparator = u'.', .groupSize = 3, .optional = 2};
  EXPECT_EQ(formatNumber(grouped, u"1234567.50").toUtf8(), "1,234,567.5");
  EXPECT_EQ(formatNumber(grouped, u"").toUtf8(), "");
  EXPECT_EQ(formatNumber({}, u"1234567.5").toUtf8(), "1234567");
  const NumberFormat fixed{.decimalSeparator = u',', .mandatory = 3};
  EXPECT_EQ(formatNumber(fixed, u"7.25").toUtf8(), "7,250");
  const NumberFormat single{.groupSeparator = u'\'', .groupSize = 1};
  EXPECT_EQ(formatNumber(single, u"-123").toUtf8(), "-1'2'3");
}

TEST(DisplayFormat, LongTextsAreWhole) {
  const std::u16string digits(100'000, u'7');
  const XString grouped = applyDisplayFormat(u"#,##0", digits);
  EXPECT_EQ(grouped.length(), 133'333);
  EXPECT_EQ(applyDisplayFormat(std::u16string(100'000, u'X'), digits), digits);
}

TEST(DisplayFormat, TheTextMayBeTheResult) {
  XString text = u"1234567";
  applyDisplayFormat(u"#,##0", text, text);
  EXPECT_EQ(text.toUtf8(), "1,234,567");
}

}  // namespace
}  // namespace tessera
