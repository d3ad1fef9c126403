#include "backends/raster/font_cache.h"

#include <thread>

#include "backends/raster/text_painter.h"
#include "raster/text_picture.h"

namespace tessera {
namespace {

TEST(FontCache, HandsOutOneFontForEqualLooks) {
  FontCache cache;
  const Font* const plain = &cache.font(fontOf("DejaVu Sans", -12));
  EXPECT_EQ(&cache.font(fontOf("DejaVu Sans", -12, 400, false, true)), plain);
  EXPECT_NE(&cache.font(fontOf("DejaVu Sans", -12, 700)), plain);
  EXPECT_NE(&cache.font(fontOf("DejaVu Sans", -13)), plain);
}

TEST(FontCache, ForgetsTheFontUnusedForLongest) {
  FontCache cache;
  const auto shapeIn = [&](std::int32_t height) {
    return cache.shaper().shape(cache.font(fontOf("", -height)), u"e\u0301").width;
  };
  const std::int32_t first = shapeIn(10), kept = shapeIn(11);
  const auto entriesAdded = [&](std::int32_t height) {
    const std::size_t before = cache.glyphs().entries();
    cache.font(fontOf("", -height)).glyph(U'x');
    return cache.glyphs().entries() - before;
  };
  EXPECT_GT(entriesAdded(11), 0u);
  for (std::int32_t height = 12; height < 12 + static_cast<std::int32_t>(FontCache::maxFonts); ++height) {
    EXPECT_GT(shapeIn(height), 0);
    EXPECT_EQ(entriesAdded(11), 0u) << "still the same font";
  }
  EXPECT_EQ(shapeIn(10), first);
  EXPECT_EQ(shapeIn(11), kept);
}

TEST(GlyphCache, StaysInItsBoundAndDrawsTheSameAgain) {
  const LogFont font = fontOf("", -600);
  WhiteCanvas canvas(700, 700);
  const auto drawn = [&](char16_t c) {
    canvas.fill({0, 0, 700, 700}, white);
    canvas.text({0, 0, 700, 700}, 0, 0, font, black, std::u16string_view(&c, 1));
    return canvas.snapshot();
  };
  const Bitmap before = drawn(u'W');
  std::size_t last = 0, flushes = 0;
  for (char16_t c = u'\u0391'; c < u'\u0481'; ++c) {
    drawn(c);
    const std::size_t now = FontCache::ofThread().glyphs().pixelBytes();
    EXPECT_LE(now, GlyphCache::pixelLimit);
    flushes += now < last;
    last = now;
  }
  EXPECT_GT(flushes, 0u);
  EXPECT_EQ(drawn(u'W'), before);
}

TEST(TextShaper, KeepsWhatIsUsedWithinItsBound) {
  FontCache cache;
  Font& font = cache.font({});
  const std::u16string hot[] = {u"hot e\u0301", u"warm e\u0301", u"used e\u0301"};
  for (const std::u16string& text : hot) cache.shaper().shape(font, text);
  for (std::uint32_t i = 0; i < 3000; ++i) {
    std::u16string text(200, u'x');
    text += {static_cast<char16_t>(u'a' + i % 26), static_cast<char16_t>(u'\u4E00' + i), u'\u0301'};
    cache.shaper().shape(font, text);
    const std::uint64_t before = cache.shaper().shapings();
    for (const std::u16string& used : hot) cache.shaper().shape(font, used);
    ASSERT_EQ(cache.shaper().shapings(), before) << i;
    ASSERT_LE(cache.shaper().textsKept() * 200, 2 * TextShaper::maxGlyphs) << "at 200 glyphs a text";
  }
}

TEST(WidthCache, StaysInItsBoundAndEndsWithItsFonts) {
  FontCache cache;
  std::u16string text(WidthCache::longText, u'x');
  const LogFont font = fontOf("", -12);
  const std::int32_t unit = measureText(cache, font, u"x").width;
  EXPECT_EQ(cache.widths().size(), 0u) << "a short text is not kept";
  for (std::size_t i = 0; i < 2 * WidthCache::maxTexts; ++i) {
    text[i] = u' ';
    measureText(cache, font, text);
    ASSERT_LE(cache.widths().size(), WidthCache::maxTexts);
  }
  text.assign(WidthCache::longText, u'x');
  EXPECT_EQ(measureText(cache, font, text).width, static_cast<std::int32_t>(text.size()) * unit);
  EXPECT_GT(cache.widths().size(), 0u);
  // A font that ends takes them along: the next one may be made at its address.
  for (std::int32_t height = 20; height < 20 + static_cast<std::int32_t>(FontCache::maxFonts); ++height) {
    cache.font(fontOf("", -height));
  }
  EXPECT_EQ(cache.widths().size(), 0u);
}

TEST(FontCache, GivesEveryThreadItsOwnWithEqualMeasures) {
  const std::u16string text = u"Thread 스레드 e\u0301 אב";
  const std::int32_t width = widthOf(text);
  const Bitmap picture = textPicture(text);
  std::vector<int> equal(4, 0);
  std::vector<std::thread> threads;
  threads.reserve(equal.size());
  for (int& result : equal) {
    threads.emplace_back([&] { result = widthOf(text) == width && textPicture(text) == picture; });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(equal, std::vector<int>(4, 1));
}

}  // namespace
}  // namespace tessera
