#include <algorithm>

#include "backends/raster/font_cache.h"
#include "backends/raster/text_segments.h"
#include "raster/text_picture.h"

namespace tessera {
namespace {

const LogFont styles[] = {fontOf(""),
                          fontOf("", -12, 700),
                          fontOf("", -13, 0, true),
                          fontOf("DejaVu Serif", -9),
                          fontOf("NanumGothic", -15, 700, true),
                          fontOf("", 30)};

TEST(TextExtent, IsTheSumOfTheCharacters) {
  const std::u16string_view texts[] = {u"AVAWA To file ffi", u"가격표와 합계", u"Привет, κόσμε",
                                       u"1,234.50 \u20AC", u"\u2460\u3042\u4E2D\uFF21"};
  for (const LogFont& font : styles) {
    for (const std::u16string_view text : texts) {
      std::int32_t sum = 0;
      for (std::size_t i = 0; i < text.size(); ++i) sum += widthOf(text.substr(i, 1), font);
      EXPECT_EQ(widthOf(text, font), sum);
      EXPECT_GT(sum, 0);
    }
  }
}

TEST(TextExtent, RoundsTheFacesOwnAdvances) {
  // Advances of DejaVu Sans in 1/2048 of the em.
  const struct {
    std::u16string_view text;
    std::int32_t units;
  } rows[] = {{u"i", 569}, {u"W", 2025}, {u"n", 1298}, {u" ", 651}, {u"0", 1303}};
  for (const auto& row : rows) {
    for (const std::int32_t em : {8, 12, 13, 31, 200}) {
      EXPECT_EQ(widthOf(row.text, fontOf("DejaVu Sans", -em)), (row.units * em + 1024) / 2048) << em;
    }
  }
}

TEST(TextExtent, HasTheHeightOfThePrimaryFace) {
  RasterCanvas canvas({1, 1});
  for (const LogFont& font : styles) {
    const Size none = canvas.textExtent(font, u"");
    EXPECT_EQ(none.width, 0);
    EXPECT_GT(none.height, 8);
    for (const std::u16string_view text : {u"x", u"가", u"\u05D0", u"\u0001"}) {
      EXPECT_EQ(canvas.textExtent(font, text).height, none.height);
    }
  }
  EXPECT_NEAR(canvas.textExtent(fontOf("", 30), u"x").height, 30, 1) << "a positive height is the line's";
  const std::int32_t em = FontCache::ofThread().font(fontOf("", 30)).em();
  EXPECT_EQ(widthOf(u"가나다", fontOf("", 30)), widthOf(u"가나다", fontOf("", -em))) << "other faces follow";
  EXPECT_EQ(canvas.textExtent({}, u"Default"), canvas.textExtent(fontOf("DejaVu Sans", -12), u"Default"));
}

TEST(TextExtent, TakesAnyHeight) {
  for (const std::int32_t height : {least, least + 1, -100000, -1, 1, 100000, most}) {
    const Size size = RasterCanvas({1, 1}).textExtent(fontOf("", height), u"abc");
    EXPECT_GT(size.height, 0) << height;
    EXPECT_LE(size.height, 2 * FontFace::maxEm) << height;
    EXPECT_GE(size.width, 0) << height;
  }
}

TEST(Text, IsCutToItsClip) {
  std::vector<Rect> clips{{20, 12, 60, 22}, {0, 0, 7, 40},           {20, 12, 20, 30},  {60, 0, 20, 40},
                          {-5, -5, 40, 15}, {least, 14, most, most}, {150, 0, 500, 500}};
  for (std::int32_t x = 0; x < textBounds.right; ++x) clips.push_back({x, 0, x + 1, textBounds.bottom});
  // Slanted letters reach under their neighbours, over the place where the pen stands.
  const LogFont font = fontOf("DejaVu Serif", -24, 0, true, true);
  const std::u16string_view text = u"jfW가\u05D0gÄ — jfjf";
  const Bitmap whole = textPicture(text, font);
  for (const Rect& clip : clips) {
    WhiteCanvas canvas(textBounds.right, textBounds.bottom);
    canvas.text(clip, 5, 8, font, black, text);
    for (std::int32_t y = 0; y < textBounds.bottom; ++y) {
      for (std::int32_t x = 0; x < textBounds.right; ++x) {
        ASSERT_EQ(canvas.pixel(x, y), clip.holds(x, y) ? whole.at(x, y) : pixelOf(white))
            << x << ',' << y << " clip " << clip.left;
      }
    }
  }
}

TEST(Text, LeftOfTheSurfaceIsSkippedOnly) {
  const LogFont font = fontOf("", -12, 0, true);
  const std::int32_t step = widthOf(u"m", font);
  for (const std::u16string tail : {u"tail 가나", u" e\u0301 tail"}) {
    const Bitmap near = textPicture(u"mmm" + tail, font, 20 - 3 * step);
    EXPECT_GT(inkOf(near), 50u);
    EXPECT_EQ(textPicture(std::u16string(3000, u'm') + tail, font, 20 - 3000 * step), near);
  }
}

TEST(Text, FarAwayDrawsNothing) {
  const std::int32_t far[] = {least, least + 1, -100000, 100000, most - 1, most};
  for (const std::int32_t x : far) {
    for (const std::int32_t y : far) {
      WhiteCanvas canvas(30, 20);
      canvas.text({least, least, most, most}, x, 2, fontOf("", -12, 0, false, true), black, u"far");
      canvas.text({least, least, most, most}, 2, y, fontOf("", -12, 0, false, true), black, u"far e\u0301");
      canvas.text({0, 0, 30, 20}, x, y, fontOf("", least), black, u"far");
      ASSERT_EQ(inkOf(canvas.snapshot()), 0u) << x << ',' << y;
    }
  }
}

TEST(Text, BoldThatIsMadeUpTakesMoreRoom) {
  const std::string_view face = "DejaVu Math TeX Gyre";
  EXPECT_GT(widthOf(u"IIII", fontOf(face, -32, 700)), widthOf(u"IIII", fontOf(face, -32)));
  EXPECT_GT(inkOf(textPicture(u"I", fontOf(face, -32, 700))), inkOf(textPicture(u"I", fontOf(face, -32))));
}

TEST(Text, UnderlineIsOneLineBelowTheText) {
  for (const LogFont& style : styles) {
    LogFont underlined = style;
    underlined.lfUnderline = 1;
    const std::u16string_view text = u"under e\u0301 밑줄";
    const Bitmap with = textPicture(text, underlined), without = textPicture(text, style);
    const std::int32_t width = widthOf(text, style);
    ASSERT_EQ(widthOf(text, underlined), width);
    std::int32_t lines = 0;
    for (std::int32_t y = 0; y < with.height; ++y) {
      std::int32_t changed = 0;
      for (std::int32_t x = 0; x < with.width; ++x) {
        if (with.at(x, y) == without.at(x, y)) continue;
        EXPECT_EQ(with.at(x, y), pixelOf(black));
        EXPECT_TRUE(x >= 5 && x < 5 + width);
        ++changed;
      }
      lines += changed > width / 2;
    }
    EXPECT_GE(lines, 1);
    EXPECT_LE(lines, 3);
  }
}

TEST(Text, MissingCharactersComeFromOtherFaces) {
  const Bitmap missing = textPicture(u"\U000F0000");
  EXPECT_GT(inkOf(missing), 10u) << "what no face has is shown as a sign";
  EXPECT_EQ(missing, textPicture(u"\U000F0001"));
  for (const std::string_view face : {"DejaVu Sans", "DejaVu Serif", ""}) {
    const Bitmap syllable = textPicture(u"가", fontOf(face, -12));
    EXPECT_GT(inkOf(syllable), 10u);
    EXPECT_FALSE(syllable == textPicture(u"\U000F0000", fontOf(face, -12)));
    EXPECT_FALSE(syllable == textPicture(u"나", fontOf(face, -12)));
  }
  EXPECT_EQ(textPicture(u"x", fontOf("No Such Face")), textPicture(u"x", fontOf("DejaVu Sans")));
  EXPECT_FALSE(textPicture(u"x", fontOf("DejaVu Serif")) == textPicture(u"x", fontOf("DejaVu Sans")));
}

TEST(Text, ShowsBrokenTextAsSigns) {
  const struct {
    std::u16string broken, shown;
  } rows[] = {
      {u"a\xD800z", u"a\uFFFDz"},
      {u"\xDC00\xD800", u"\uFFFD\uFFFD"},
      {u"e\u0301\xD800", u"e\u0301\uFFFD"},
      {u"a\u0001\u001F\u007F\u0085\u2028z\r\n", u"a  z "},
      {u"e\u0301\u0001\u0085z", u"e\u0301 z"},
      {u"e\u0301\tz", u"e\u0301 z"},
      {u"a\u200B\u200D\uFEFFz", u"az"},
      {std::u16string(1, u'\0'), u""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(textPicture(row.broken), textPicture(row.shown));
    EXPECT_EQ(widthOf(row.broken), widthOf(row.shown));
  }
  EXPECT_FALSE(textPicture(u"\U0001D400") == textPicture(u"\uFFFD")) << "pairs are one character";
}

}  // namespace
}  // namespace tessera
