#include "config/display_format.h"

#include <gtest/gtest.h>

namespace tessera {
namespace {

TEST(DisplayFormat, Rows) {
  const struct {
    const char16_t* format;
    const char16_t* text;
    const char* expected;
  } rows[] = {
      // Number pictures.
      {u"#,###.00", u"1234567.891", "1,234,567.89"},
      {u"#,###.##", u"1234567.891", "1,234,567.89"},
      {u"#,###.##", u"1234567.8", "1,234,567.8"},
      {u"#,###.##", u"1234567", "1,234,567"},
      {u"#,###.##", u"1234567.00", "1,234,567"},
      {u"#,###.00", u"1234567.8", "1,234,567.80"},
      {u"#,###.0#", u"5", "5.0"},
      {u"#,###.0#", u"5.25", "5.25"},
      {u"#,###.#0", u"5.20", "5.2"},
      {u"#,###.00", u"0.999", "0.99"},
      {u"#,###.00", u"1.2.3", "1.2."},
      {u"#,###.00", u".5", ".50"},
      {u"#,##0", u"0", "0"},
      {u"#,##0", u"100", "100"},
      {u"#,##0", u"1000", "1,000"},
      {u"#,##0", u"1234.99", "1,234"},
      {u"#,##0", u"-123456", "-123,456"},
      {u"#,##0", u"-123", "-123"},
      {u"#,##0", u"-1234", "-1,234"},
      {u"#,##0", u"123-456", "123-,456"},
      {u"#,##0", u"abcdef", "abc,def"},
      {u"#,#0", u"12345", "1,23,45"},
      {u"#,0", u"12345", ""},
      {u"#.##0", u"1234567", "1.234.567"},
      {u"# ###,00", u"1234.5", "1 234,50"},
      {u"$ #,##0 won", u"1234", "$ 1,234 won"},
      {u"#,###.0 won", u"1234", "1,234.0 won"},
      {u"(#,##0)", u"7", "(7)"},
      {u"###", u"1234567.8", "1234567"},
      {u"##0", u"1234567.8", "1234567"},
      {u"##.00", u"1234.5", "1234.50"},
      {u"##.#", u"1234.5", "1234.5"},
      {u"#!,##0", u"1234", "1,234"},
      {u"#!###0", u"1234", "1#234"},
      {u"#,##0!0", u"1234", "1,2340"},
      {u"!##,##0", u"1234", "#1,234"},
      {u"#,##0!", u"1234", "1,234"},
      {u"#,###.0!", u"1234", "1,234.0"},
      {u"#,##0!!", u"1234", "1,234!"},

      // Faulty ones.
      {u"#,###", u"1234", ""},
      {u"#,##0.00", u"1234", ""},
      {u"0.00", u"1234", ""},
      {u"###.00", u"1234", ""},
      {u"####", u"1234", ""},
      {u"#", u"1234", ""},
      {u"##", u"1234", ""},
      {u"#0", u"1234", ""},
      {u"#,", u"1234", ""},
      {u"#,,##0", u"1234", ""},
      {u"#,###.", u"1234", ""},
      {u"#,###..00", u"1234", ""},
      {u"#,##0#", u"1234", ""},
      {u"#,##0 0", u"1234", ""},
      {u"X#", u"1234", ""},
      {u"#X", u"1234", ""},
      {u"X0", u"1234", ""},
      {u"#,##0X", u"1234", ""},

      // Masks.
      {u"XXXX-XX-XX", u"20071231", "2007-12-31"},
      {u"XXXX-XX-XX", u"2007", "2007--"},
      {u"XX", u"20071231", "20"},
      {u"!#XX", u"12", "#12"},
      {u"!XX!X", u"12", "X1X"},
      {u"!!X", u"1", "!1"},
      {u"X!", u"1", "1"},
      {u"!0X", u"1", "01"},
      {u"x-X", u"1", "x-1"},

      // Neither.
      {u"abc", u"1", "abc"},
      {u"!", u"1", ""},
      {u"", u"1", ""},
      {u"abc", u"", ""},
      {u"$ #,##0", u"", ""},
      {u"XX-XX", u"", ""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(applyDisplayFormat(row.format, row.text).toUtf8(), row.expected)
        << XString(row.format).toUtf8() << " of " << XString(row.text).toUtf8();
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
