#include "config/color_words.h"

#include <gtest/gtest.h>

#include "config/color_table.h"

namespace tessera {
namespace {

TEST(ColorWords, Parse) {
  const struct {
    const char16_t* text;
    ColorRef color;
  } rows[] = {
      {u"#102030", 0x302010},
      {u"#aBcDeF", 0xEFCDAB},
      {u"#", 0},
      {u"#1", 0x10},
      {u"#12", 0x12},
      {u"#123", 0x3012},
      {u"#GG", 0},
      {u"#1G", 0x10},
      {u"#1 2", 0x10},
      {u"#1020304", 0x302010},
      {u"255", 0xFF},
      {u"00ff00", 0},
      {u"16711680", 0xFF0000},
      {u"12abc", 12},
      {u"99999999999", 0x7FFFFFFF},
      {u"red", 0x0000FF},
      {u"RED", 0x0000FF},
      {u"Red", 0x0000FF},
      {u"none", 0xFF0000},
      {u"default", 0xFFFFFF},
      {u"cornflower", rgb(0x64, 0x95, 0xed)},
      {u"cornflowerblue", noColor},
      {u"fuchia", rgb(0xff, 0, 0xff)},
      {u"fuchsia", noColor},
      {u"lightgrey", rgb(0xd3, 0xd3, 0xd3)},
      {u"lightgray", noColor},
      {u"grey", noColor},
      {u"gray", rgb(0x80, 0x80, 0x80)},
      {u"green", rgb(0, 0x80, 0)},
      {u"maroon", rgb(0x80, 0, 0)},
      {u"purple", rgb(0x80, 0, 0x80)},
      {u"darkseagreen", rgb(0x8f, 0xbc, 0x8b)},
      {u"DarkViolet", rgb(0x94, 0x0d, 0xd3)},
      {u"lightgoldenrodyellow", rgb(0xfa, 0xfa, 0xd2)},
      {u"yellowgreen", rgb(0x9a, 0xcd, 0x32)},
      {u"yellowgreens", noColor},
      {u"aliceblue", rgb(0xf0, 0xf8, 0xff)},
      {u"rebeccapurple", noColor},
      {u"inherit", noColor},
      {u"", noColor},
      {nullptr, noColor},
      {u" red", noColor},
      {u"red ", noColor},
      {u"-1", noColor},
      {u"\xFF32"
       u"ed",
       noColor},  // a full-width R is no R
  };
  for (const auto& row : rows)
    EXPECT_EQ(parseColor(XString(row.text)), row.color) << XString(row.text).toUtf8();
}

TEST(ColorWords, EveryNameIsFoundInAnyCase) {
  for (const NamedColor& row : namedColors) {
    std::u16string upper(row.name);
    for (char16_t& unit : upper) unit = static_cast<char16_t>(unit - u'a' + u'A');
    EXPECT_EQ(parseColor(row.name), row.value);
    EXPECT_EQ(parseColor(upper), row.value);
  }
}

TEST(ColorWords, WrittenColorsReadBack) {
  const std::pair<ColorRef, const char*> rows[] = {{0x302010, "#102030"},
                                                   {0, "#000000"},
                                                   {0xEFCDAB, "#abcdef"},
                                                   {noColor, "#ffffff"},
                                                   {0x0A0000FF, "#ff0000"}};
  for (const auto& [color, text] : rows) {
    EXPECT_EQ(colorToText(color).toUtf8(), text);
    EXPECT_EQ(parseColor(colorToText(color)), color & 0xFFFFFF);
  }
}

}  // namespace
}  // namespace tessera
