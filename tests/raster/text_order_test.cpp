#include <chrono>

#include "backends/raster/font_cache.h"
#include "backends/raster/text_segments.h"
#include "raster/text_picture.h"

namespace tessera {
namespace {

// How often texts are shaped while `action` runs.
template <class Action>
std::uint64_t shapingsIn(Action action) {
  const std::uint64_t before = FontCache::ofThread().shaper().shapings();
  action();
  return FontCache::ofThread().shaper().shapings() - before;
}

TEST(TextOrder, IsVisual) {
  const struct {
    std::u16string text;
    std::vector<std::u16string> pieces;
  } rows[] = {
      {u"abc אבג def", {u"abc ", u"ג", u"ב", u"א", u" def"}},
      {u"אב 123.5 גד", {u"ד", u"ג", u" ", u"123.5", u" ", u"ב", u"א"}},
      {u"א(ב", {u"ב", u")", u"א"}},
      {u"f(x אב) גד",
       {u"f(x ", u"ב", u"א", u") ", u"ד", u"ג"}},  // the bracket's partner is in an earlier word
      {u"א 5\uFFE6", {u"5\uFFE6", u" ", u"א"}},    // two faces in one number
  };
  for (const auto& row : rows)
    EXPECT_EQ(textPicture(row.text), piecesPicture(row.pieces)) << row.pieces.size();
}

TEST(TextOrder, JoinsLettersAndMarks) {
  const struct {
    std::u16string shaped, same;
  } rows[] = {
      {u"e\u0301", u"é"},
      {u"e\u0301AVA file To", u"éAVA file To"},
      {u"A\u030A and u\u0308", u"Å and ü"},
      {u"\u1112\u1161\u11AB\u1100\u1173\u11AF", u"한글"},
      {u"\u0644\u0627", u"\uFEFB"},
      {u"\u0628\u0628\u0628", u"\uFE91\uFE92\uFE90"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(textPicture(row.shaped), textPicture(row.same));
    EXPECT_EQ(widthOf(row.shaped), widthOf(row.same));
  }
  EXPECT_EQ(widthOf(u"x\u0303"), widthOf(u"x")) << "a mark takes no room";
  EXPECT_FALSE(textPicture(u"x\u0303") == textPicture(u"x"));
}

TEST(Shaping, HappensOnceForExtentAndText) {
  const std::u16string text = u"measured e\u0301 once";
  EXPECT_EQ(shapingsIn([&] { EXPECT_GT(widthOf(text), 0); }), 1u);
  EXPECT_EQ(shapingsIn([&] { textPicture(text); }), 0u);
  EXPECT_EQ(shapingsIn([] { textPicture(u"Latin äß, Ελλ, Кир, 한글, 漢字, かな — 12.5 €"); }), 0u);
  EXPECT_EQ(shapingsIn([&] { textPicture(text, fontOf("", -31)); }), 1u) << "another font, another text";
}

TEST(LongText, IsShapedAsFarAsItIsSeen) {
  std::u16string text = u"Start ";
  while (text.size() < 1'000'000) text += u"نص طويل جدا ";
  Bitmap picture;
  EXPECT_LE(shapingsIn([&] { picture = textPicture(text); }), 2u);
  EXPECT_GT(inkOf(picture), 500u);
}

TEST(LongText, MakesNoGlyphsBeyondTheClip) {
  std::u16string text;
  for (char16_t c = 0xAC00; c < 0xD7A4; ++c) text += c;
  const LogFont font = fontOf("", -17);
  const std::size_t before = FontCache::ofThread().glyphs().entries();
  textPicture(text, font);
  EXPECT_LT(FontCache::ofThread().glyphs().entries() - before, 200u);
}

TEST(LongText, HasAnExactExtent) {
  EXPECT_EQ(widthOf(std::u16string(1'000'000, u'm')), 1'000'000 * widthOf(u"m"));
  EXPECT_EQ(widthOf(std::u16string(3'000'000, u'W'), fontOf("", -1000)), most) << "up to the limit";
  const struct {
    std::u16string head, unit;
  } rows[] = {{u"", u"e\u0301"},
              {u"x", u"e\u0301"},
              {u"", u"e\u0301 "},
              {u"ab", u"\U0001F600"},
              {u"x", u"word and e\u0301"}};
  for (const auto& row : rows) {
    std::u16string text = row.head;
    for (int i = 0; i < 3000; ++i) text += row.unit;
    EXPECT_EQ(widthOf(text), widthOf(row.head) + 3000 * widthOf(row.unit)) << row.unit.size();
  }
}

TEST(LongText, IsMeasuredOnce) {
  std::u16string text;  // of pieces that are all different, more than the shaper keeps
  std::uint32_t random = 1;
  while (text.size() < 600'000) {
    random = random * 1664525 + 1013904223;
    text += {static_cast<char16_t>(u'a' + (random >> 24) % 26), u'\u0301'};
  }
  const std::int32_t width = widthOf(text);
  EXPECT_EQ(shapingsIn([&] { EXPECT_EQ(widthOf(text), width); }), 0u);
  EXPECT_GT(shapingsIn([&] { EXPECT_NE(widthOf(text, fontOf("", -30)), width) << "another font"; }), 0u);
  std::u16string other = text;
  other.back() = u'm';
  EXPECT_GT(widthOf(other), width) << "as long, but another text";
}

TEST(LongText, OfOneWordIsMeasuredInPassing) {
  // Each mark far from a space must not make the whole word be looked at again.
  std::u16string text;
  for (int i = 0; i < 1000; ++i) text += std::u16string(1500, u'w') + u"\u0301";
  EXPECT_EQ(widthOf(text), 1000 * (1500 * widthOf(u"w")));
  const std::u16string word = std::u16string(200'000, u'v') + u"\u0303";
  EXPECT_EQ(shapingsIn([&] { widthOf(word); }), 1u);
}

TEST(Segments, AreCutWhereNothingBelongsTogether) {
  Font& font = FontCache::ofThread().font({});
  const struct {
    std::u16string text;
    std::vector<std::u16string> pieces;  // the shaped ones start with an asterisk
  } rows[] = {
      {u"only simple words", {u"only simple words"}},
      {u"two words e\u0301 here", {u"two words ", u"*e\u0301 here"}},
      {u"on a \u0301mark", {u"on ", u"*a \u0301mark"}},
      {u"a  \u0301mark", {u"a ", u"* \u0301mark"}},
      {u"אב cd", {u"*אב cd"}},
      {u"12 (אב) cd", {u"12 ", u"*(אב) cd"}},
      {u"12 (ab, אב) cd", {u"12 ", u"*(ab, אב) cd"}},
  };
  for (const auto& row : rows) {
    std::vector<std::u16string> pieces;
    TextSegments segments(font, row.text);
    for (TextSegment segment; segments.next(1 << 30, segment);) {
      pieces.push_back((segment.shaped ? u"*" : u"") + std::u16string(segment.text));
    }
    EXPECT_EQ(pieces, row.pieces) << row.text.size();
  }
}

TEST(Segments, OfALongTextWithoutSpacesAreCutInPassing) {
  const std::u16string text(8'000'000, u'\u05D0');
  TextSegments segments(FontCache::ofThread().font({}), text);
  const auto start = std::chrono::steady_clock::now();
  std::size_t pieces = 0;
  for (TextSegment segment; segments.next(1 << 30, segment);) ++pieces;
  EXPECT_EQ(pieces, (text.size() + TextSegments::maxShaped - 1) / TextSegments::maxShaped);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
}

TEST(Segments, CoverTheTextWithoutOverlap) {
  Font& font = FontCache::ofThread().font({});
  const std::u16string texts[] = {
      u"plain",
      u"two wo\u0301rds here",
      u"אב",
      std::u16string(5000, u'\u0301'),
      u"space \u0301mark",
      std::u16string(1023, u'a') + u"\u05D0\U0001F600\xD800",
      u"\u0301" + std::u16string(700, u'\xD83D') + std::u16string(700, u'\xDE00')};
  for (const std::u16string& text : texts) {
    TextSegments segments(font, text);
    std::u16string joined;
    for (TextSegment segment; segments.next(1 << 30, segment);) {
      ASSERT_FALSE(segment.text.empty());
      EXPECT_LE(segment.shaped ? segment.text.size() : 0, TextSegments::maxShaped);
      joined += segment.text;
    }
    EXPECT_EQ(joined, text);
  }
}

}  // namespace
}  // namespace tessera
