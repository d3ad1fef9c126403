#include "shared/utf.h"

#include <gtest/gtest.h>

#include <tessera/xstring.h>

namespace tessera {
namespace {

constexpr char16_t bad = 0xFFFD;

// A run of ASCII of every length up to a few chunks on both sides of one character.
TEST(Utf, ChunksOfAsciiMeetOtherCharactersAnywhere) {
  for (std::size_t before = 0; before < 40; ++before) {
    for (std::size_t after = 0; after < 40; ++after) {
      const std::string narrow = std::string(before, 'x') + "\xEA\xB0\x80" + std::string(after, 'y');
      const std::u16string wide = std::u16string(before, u'x') + u"\uAC00" + std::u16string(after, u'y');
      ASSERT_EQ(utf16FromUtf8(narrow), wide) << before << ' ' << after;
      ASSERT_EQ(utf8FromUtf16(wide), narrow) << before << ' ' << after;
      ASSERT_TRUE(isUtf8(narrow));
      ASSERT_FALSE(isUtf8(std::string(before, 'x') + "\x80" + std::string(after, 'y')));
    }
  }
}

TEST(Utf, EveryCharacterGoesBothWays) {
  std::u16string all;
  for (char32_t character = 1; character <= 0x10FFFF; ++character) {
    if (character >= 0xD800 && character <= 0xDFFF) continue;
    if (character >= 0x10000) {
      all += static_cast<char16_t>(0xD7C0 + (character >> 10));
      all += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
    } else {
      all += static_cast<char16_t>(character);
    }
  }
  const std::string narrow = utf8FromUtf16(all);
  EXPECT_EQ(narrow.size(), 0x7Fu + 2u * 0x780 + 3u * (0x10000 - 0x800 - 0x800) + 4u * 0x100000);
  EXPECT_TRUE(isUtf8(narrow));
  EXPECT_TRUE(utf16FromUtf8(narrow) == all);
  EXPECT_EQ(utf16Length(narrow), all.size());
  EXPECT_EQ(utf8Length(all), narrow.size());
  EXPECT_EQ(utf8FromUtf16(u"\u0080\u07FF\u0800\uFFFF\U00010000"),
            "\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80");
  EXPECT_EQ(utf16FromUtf8(std::string_view("a\0b", 3)), std::u16string_view(u"a\0b", 3));
}

TEST(Utf, BadSequencesAreReplacedOneByOne) {
  struct Row {
    std::string_view narrow;
    std::u16string wide;
  };
  const Row rows[] = {
      {"\x80", {bad}},
      {"a\xBF"
       "b",
       {u'a', bad, u'b'}},
      {"\xC0\xAF", {bad, bad}},
      {"\xC1\xBF", {bad, bad}},
      {"\xC3", {bad}},
      {"\xC3(", {bad, u'('}},
      {"\xE0\x9F\xBF", {bad, bad, bad}},
      {"\xE0\xA0", {bad}},
      {"\xE0\xA0x", {bad, u'x'}},
      {"\xED\xA0\x80", {bad, bad, bad}},
      {"\xF0\x8F\xBF\xBF", {bad, bad, bad, bad}},
      {"\xF0\x90\x80", {bad}},
      {"\xF0\x90\x80\xC3\xA4", {bad, u'\u00E4'}},
      {"\xF1\x80\xF1\x80\x80\x80", {bad, 0xD8C0, 0xDC00}},
      {"\xF4\x90\x80\x80", {bad, bad, bad, bad}},
      {"\xF5\x80", {bad, bad}},
      {"\xFE\xFF", {bad, bad}},
  };
  for (const Row& row : rows) {
    EXPECT_FALSE(isUtf8(row.narrow)) << &row - rows;
    EXPECT_EQ(utf16FromUtf8(row.narrow), row.wide) << &row - rows;
    EXPECT_EQ(XString::fromNarrow(row.narrow), row.wide) << &row - rows;
  }
}

TEST(Utf, UnpairedSurrogatesAreReplaced) {
  const std::string replaced = "\xEF\xBF\xBD";
  EXPECT_EQ(utf8FromUtf16(std::u16string{0xD800}), replaced);
  EXPECT_EQ(utf8FromUtf16(std::u16string{0xDC00, u'a'}), replaced + "a");
  EXPECT_EQ(utf8FromUtf16(std::u16string{0xD83D, 0xD83D, 0xDE00}), replaced + "\xF0\x9F\x98\x80");
  EXPECT_EQ(utf8FromUtf16(std::u16string{0xD83D, u'a'}), replaced + "a");
  EXPECT_EQ(utf8FromUtf16(std::u16string(15, u'a') + std::u16string{0xD83D, 0xDE00}),
            std::string(15, 'a') + "\xF0\x9F\x98\x80");
}

}  // namespace
}  // namespace tessera
