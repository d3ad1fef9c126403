#include "config/color_words.h"

#include "config/color_table.h"
#include "tests/support/text_rows.h"

namespace tessera {
namespace {

TEST(ColorWords, Parse) {
  for (const auto& [text, color] : test::textRows(R"(
#102030 => #102030 | #aBcDeF => #abcdef | # => #000000 | #1 => #100000 | #12 => #120000 | #123 => #123000
#GG => #000000 | #1G => #100000 | #1 2 => #100000 | #1020304 => #102030 | 255 => #ff0000 | 00ff00 => #000000
16711680 => #0000ff | 12abc => #0c0000 | RED => #ff0000 | none => #0000ff | default => #ffffff
cornflower => #6495ed | fuchia => #ff00ff | lightgrey => #d3d3d3 | gray => #808080 | DarkViolet => #940dd3)")) {
    EXPECT_EQ(colorToText(parseColor(XString::fromNarrow(text))).toUtf8(), color) << text;
  }
  EXPECT_EQ(parseColor(u"99999999999"), 0x7FFFFFFFu);
  EXPECT_EQ(parseColor(XString()), noColor);
  for (const char16_t* text : {u"cornflowerblue", u"fuchsia", u"lightgray", u"grey", u"yellowgreens",
                               u"inherit", u"", u" red", u"red ", u"-1", u"\uFF32ed"}) {
    EXPECT_EQ(parseColor(text), noColor) << XString(text).toUtf8();
  }
}

TEST(ColorWords, EveryNameIsFoundInAnyCase) {
  for (const NamedColor& row : namedColors) {
    std::u16string upper(row.name);
    for (char16_t& unit : upper) unit = static_cast<char16_t>(unit - u'a' + u'A');
    EXPECT_EQ(parseColor(row.name), row.value);
    EXPECT_EQ(parseColor(upper), row.value);
  }
}

TEST(ColorWords, NothingAboveTheColorIsWritten) {
  EXPECT_EQ(colorToText(noColor).toUtf8(), "#ffffff");
  EXPECT_EQ(colorToText(0x0A0000FF).toUtf8(), "#ff0000");
}

}  // namespace
}  // namespace tessera
