#include "cells/split_text.h"

#include <chrono>
#include <gtest/gtest.h>

namespace tessera {
namespace {

using Items = std::vector<std::u16string>;

TEST(SplitText, Items) {
  const struct {
    const char16_t *text, *delimiter, *trimSet;
    char16_t escape;
    Items expected;
  } cases[] = {{u"", u";", u"", 0, {u""}},
               {u"a;b;c", u";", u"", 0, {u"a", u"b", u"c"}},
               {u";b", u";", u"", 0, {u"b"}},
               {u"a;;b", u";", u"", 0, {u"a", u"b"}},
               {u"a;;", u";", u"", 0, {u"a", u""}},
               {u";b", u";", u"", u'/', {u"", u"b"}},
               {u"a;;b", u";", u"", u'/', {u"a", u"", u"b"}},
               {u"/;a", u";", u"", u'/', {u";a"}},
               {u" a b ;\tc ", u";", u" \t", u'/', {u"a b", u"c"}},
               {u"  ;x", u";", u" ", u'/', {u"", u"x"}},
               {u"a::b:c", u"::", u"", u'/', {u"a", u"b:c"}},
               {u"a/;b/c;/;d/;", u";", u"", u'/', {u"a;b/c", u";d;"}},
               {u"x///y", u"/", u"", u'/', {u"x", u"", u"", u"y"}},
               {u"a;b", u"", u"", u'/', {u"a;b"}}};
  for (const auto& test : cases) {
    std::vector<XString> list{XString(u"left over")};
    EXPECT_EQ(splitText(list, test.text, test.delimiter, test.trimSet, test.escape),
              static_cast<std::int32_t>(test.expected.size()));
    Items items;
    for (const XString& item : list) items.emplace_back(item.view());
    EXPECT_EQ(items, test.expected) << XString(test.text).toUtf8();
  }
}

// Each delimiter must not make all that follows it move.
TEST(SplitText, OfMillionsOfDelimitersIsMadeInPassing) {
  constexpr std::size_t count = 2'000'000;
  std::u16string escaped;
  for (std::size_t i = 0; i < count; ++i) escaped += u"/;";
  const auto start = std::chrono::steady_clock::now();
  std::vector<XString> list;
  EXPECT_EQ(splitText(list, std::u16string(count, u';'), u";", u"", 0), 1);
  EXPECT_EQ(splitText(list, escaped, u";", u"", u'/'), 1);
  EXPECT_EQ(list.front().view().size(), count);
  EXPECT_EQ(splitText(list, std::u16string(count, u';'), u";", u"", u'/'), std::int32_t{count + 1});
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST(CaptionLines, AreTheItemsOfTheCaption) {
  for (const char16_t* text : {u"", u"A", u"A;B", u"A;", u";B", u";", u"A;;B", u"A;;", u";;A;B;;;C"}) {
    std::vector<XString> items;
    const std::int32_t count = splitText(items, text, u";", u"", 0);
    EXPECT_EQ(CaptionLines::count(text), count) << XString(text).toUtf8();
    CaptionLines lines(text);
    std::u16string_view line;
    for (const XString& item : items) {
      ASSERT_TRUE(lines.next(line));
      EXPECT_EQ(XString(line), item) << XString(text).toUtf8();
    }
    EXPECT_FALSE(lines.next(line));
  }
}

}  // namespace
}  // namespace tessera
