#include "backends/native/iconv_code_pages.h"

#include <gtest/gtest.h>

namespace tessera {
namespace {

TEST(IconvCodePages, NarrowTexts) {
  struct Case {
    std::int32_t codePage;
    const char16_t* text;
    const char* narrow;
  };
  const Case cases[] = {
      {0, u"\uAC00k", "\xEA\xB0\x80k"},
      {65001, u"\uAC00", "\xEA\xB0\x80"},
      {949, u"\uAC00k", "\xB0\xA1k"},
      {932, u"\u3042", "\x82\xA0"},
      {1252, u"\u00E9\u20AC", "\xE9\x80"},
      {1252, u"a\uAC00b\U0001F600c", "a?b?c"},
      {949, u"", ""},
      {4711, u"\u00E9", "\xC3\xA9"},
      {-3, u"x", "x"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(IconvCodePages().toNarrow(c.codePage, c.text), c.narrow) << c.codePage;
  const std::u16string longText(1000, u'\uAC00');
  EXPECT_EQ(IconvCodePages().toNarrow(949, longText).size(), 2000u);
}

}  // namespace
}  // namespace tessera
