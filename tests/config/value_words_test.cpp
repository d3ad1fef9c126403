#include "config/value_words.h"

#include "config/child_words.h"
#include "tests/support/text_rows.h"

namespace tessera {
namespace {

void check(std::string_view table, std::int32_t (*parse)(std::u16string_view)) {
  for (const auto& [word, value] : test::textRows(table)) {
    EXPECT_EQ(std::to_string(parse(XString::fromNarrow(word))), value) << word;
  }
}

TEST(ValueWords, InAnyCaseAndOrderAndNothingElse) {
  check("TopLeft => 9 | centerleft => 17 | CENTERCENTER => 18 | full => 940302", parseAlign);
  check("left => 0 | left top => 0 | middle => 0", parseAlign);
  check("RaisedOuter => 8 | none => 0 | raised => -1", parseBorderStyle);
  check("none => 0 | italicbold => 3 | under => 4 | BoldUnder => 5 | boldunderitalic => 7", parseFontStyle);
  check("bold under => -1 | bolditalicunder => -1", parseFontStyle);
  check("BEAM => 2 | hand => 9 | sizewe => 0", parseCursor);
  EXPECT_EQ(parseAlign(u"") + parseCursor(u""), 0);
  EXPECT_EQ(parseBorderStyle(u"") + parseFontStyle(u""), -2);
}

// What a writer gives, a reader takes back; 0 has no text for styles, so it starts at 1.
TEST(ValueWords, WrittenWordsReadBack) {
  for (const ValueWord& row : alignWords) EXPECT_EQ(parseAlign(alignToText(row.value)), row.value);
  for (std::int32_t flags = 1; flags <= 7; ++flags) {
    EXPECT_EQ(parseFontStyle(fontStyleToText(flags)), flags);
  }
  for (const std::int32_t style : {1, 2, 4, 8, 16}) {
    EXPECT_EQ(parseBorderStyle(borderStyleToText(style)), style);
  }
  for (const std::int32_t cursor : {1, 2, 3, 4, 5, 6, 7, 9}) {
    EXPECT_EQ(parseCursor(cursorToText(cursor)), cursor);
  }
  EXPECT_EQ(fontStyleToText(5), u"underbold");
  const std::pair<std::int32_t, const char*> aligns[] = {
      {34, "centerbottom"}, {12, "righttop"}, {1, "left"}, {32, "bottom"}, {0, ""}, {-1, "lefttop"}};
  for (const auto& [value, text] : aligns) EXPECT_EQ(alignToText(value).toUtf8(), text);
  for (const std::int32_t unknown : {0, -1, 10}) {
    EXPECT_TRUE(borderStyleToText(unknown).empty() && fontStyleToText(unknown).empty()) << unknown;
    EXPECT_TRUE(cursorToText(unknown).empty()) << unknown;
  }
}

TEST(ValueWords, CharsetsOfUnknownCodePagesStay) {
  std::string name = "before";
  charsetName(65001, name);
  EXPECT_EQ(name, "before");
  charsetName(949, name);
  EXPECT_EQ(name, "KS_C_5601-1987");
}

TEST(ValueWords, InputTypes) {
  check(" num , upper  => 3 | numeric,foo => 1 | pass,LOWER => 12 | password\t => 8 | ,,num,,num, => 1",
        parseInputType);
  check("n u m => 1 | num;upper => 0", parseInputType);
  EXPECT_EQ(parseInputType(u"num\nupper") + parseInputType(u""), 0);
}

}  // namespace
}  // namespace tessera
