#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <thread>

#include <tessera/xstring.h>

#include "shared/counted_memory.h"

namespace tessera {
namespace {

constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();

TEST(XString, HeaderStandsInFrontOfTheCharacters) {
  const XString text(u"abc");
  std::int32_t header[3];
  std::memcpy(header, reinterpret_cast<const char*>(text.chars()) - sizeof header, sizeof header);
  EXPECT_EQ(header[0], 1);
  EXPECT_EQ(header[1], 3);
  EXPECT_EQ(header[2], 3);
  EXPECT_EQ(text.chars()[3], u'\0');
}

TEST(XString, EmptyTextsShareTheStaticBlock) {
  const XString none;
  const XString ofNull(static_cast<const char16_t*>(nullptr));
  XString copied(u"abc");
  copied = none;
  for (const XString& text :
       {none, ofNull, copied, XString(u""), XString::fromNarrow(""), XString(u"abc").mid(1, 0)}) {
    EXPECT_EQ(text.chars(), none.chars());
    EXPECT_EQ(text.refs(), -1);
    EXPECT_EQ(text.length(), 0);
  }
}

TEST(XString, CopiesShareUntilOneIsWritten) {
  XString first(u"shared");
  XString second(first);
  XString third;
  third = second;
  EXPECT_EQ(first.chars(), third.chars());
  EXPECT_EQ(first.refs(), 3);

  first = second;
  EXPECT_EQ(first.refs(), 3);
  const XString& itself = first;
  first = itself;
  EXPECT_EQ(first.refs(), 3);
  const XString moved(std::move(third));
  EXPECT_EQ(third.refs(), -1);  // NOLINT(bugprone-use-after-move): what is left is part of the contract
  third = moved;
  second.append(u"!");
  EXPECT_EQ(second, u"shared!");
  EXPECT_EQ(second.refs(), 1);
  EXPECT_EQ(third.remove(0, 3), 3);
  EXPECT_EQ(third, u"red");
  EXPECT_EQ(first, u"shared");
  EXPECT_EQ(first.refs(), 2);
}

TEST(XString, AssignReusesABlockThatFits) {
  XString text(u"0123456789");
  const char16_t* block = text.chars();
  text.assign(u"abc");
  EXPECT_EQ(text, u"abc");
  EXPECT_EQ(text.chars(), block);
  EXPECT_EQ(text.chars()[3], u'\0');
  text.assign(u"");
  EXPECT_EQ(text.chars(), block);
  text.assign(u"9876543210");
  EXPECT_EQ(text.chars(), block);

  const XString other(text);
  text.assign(u"x");
  EXPECT_NE(text.chars(), block);
  EXPECT_EQ(other, u"9876543210");
  EXPECT_EQ(other.refs(), 1);
}

TEST(XString, TakesTextFromInsideItself) {
  XString text(u"0123456789");
  text.assign(text.view().substr(3, 4));
  EXPECT_EQ(text, u"3456");
  text.append(text.view().substr(1));
  EXPECT_EQ(text, u"3456456");
  text += text;
  EXPECT_EQ(text, u"34564563456456");
  const XString other(text);
  text.assign(text.view().substr(0, 2));
  EXPECT_EQ(text, u"34");
  EXPECT_EQ(other, u"34564563456456");
}

TEST(XString, AppendGrowsToTheExactLength) {
  XString text(u"abcdef");
  text.assign(u"ab");
  const char16_t* block = text.chars();
  text += u"cdef";
  EXPECT_EQ(text.chars(), block);
  text += u"";
  EXPECT_EQ(text.chars(), block);
  text += u"g";
  EXPECT_EQ(text, u"abcdefg");
  const char16_t* grown = text.chars();
  EXPECT_NE(grown, block);
  const std::int64_t before = test::allocationCount();
  text += u"h";
  EXPECT_EQ(test::allocationCount() - before, 1) << "room beyond the request was taken";
  EXPECT_EQ(text, u"abcdefgh");
}

TEST(XString, Parts) {
  struct Row {
    std::int32_t start, count;
    const char16_t* mid;
  };
  constexpr Row rows[] = {{1, 3, u"bcd"},   {-4, 2, u"ab"},    {2, -1, u""},
                          {6, 1, u""},      {7, 1, u""},       {4, 9, u"ef"},
                          {4, most, u"ef"}, {most, most, u""}, {least, most, u"abcdef"}};
  for (const Row& row : rows) EXPECT_EQ(XString(u"abcdef").mid(row.start, row.count), row.mid) << row.start;
  EXPECT_EQ(XString().mid(5, 5), u"");
  const XString text(u"abcdef");
  EXPECT_EQ(text.left(-1), u"");
  EXPECT_EQ(text.left(99).chars(), text.chars()) << "the whole text is shared, not copied";
  EXPECT_EQ(text.right(2), u"ef");
  EXPECT_EQ(text.right(-1), u"");
  EXPECT_EQ(text.right(most), u"abcdef");
  EXPECT_EQ(text.charAt(5), u'f');
  EXPECT_EQ(text.charAt(6), u'\0');
  EXPECT_EQ(text.charAt(-1), u'\0');
}

TEST(XString, Find) {
  struct Row {
    const char16_t* text;
    std::int32_t start, expected;
  };
  constexpr Row rows[] = {{u"ab", 0, 0}, {u"ab", 1, 2}, {u"ab", -7, 0},   {u"ab", 3, -1}, {u"ab", 99, -1},
                          {u"b", 2, 3},  {u"x", 0, -1}, {u"ababc", 0, 0}, {u"abc", 0, 2}, {u"ababcd", 0, -1},
                          {u"", 0, 0},   {u"", 5, 5},   {u"", 6, -1}};
  const XString text(u"ababc");
  for (const Row& row : rows) {
    EXPECT_EQ(text.find(row.text, row.start), row.expected) << XString(row.text).toUtf8() << ' ' << row.start;
  }
  EXPECT_EQ(text.find(u'b', 2), 3);
  EXPECT_EQ(text.find(u'c', 5), -1);
  EXPECT_EQ(text.find(u'a', -3), 0);
}

TEST(XString, Remove) {
  struct Row {
    std::int32_t index, count;
    const char16_t* left;
  };
  constexpr Row rows[] = {{1, 2, u"adef"},    {-5, 2, u"cdef"},  {4, 99, u"abcd"},   {4, most, u"abcd"},
                          {0, 6, u""},        {6, 1, u"abcdef"}, {99, 1, u"abcdef"}, {2, 0, u"abcdef"},
                          {2, -1, u"abcdef"}, {5, 1, u"abcde"}};
  for (const Row& row : rows) {
    for (const bool shared : {false, true}) {
      XString text(u"abcdef");
      const XString other = shared ? text : XString();
      EXPECT_EQ(text.remove(row.index, row.count),
                static_cast<std::int32_t>(std::u16string_view(row.left).size()));
      EXPECT_EQ(text, row.left) << row.index << ',' << row.count;
      EXPECT_EQ(text.chars()[text.length()], u'\0');
      EXPECT_EQ(other, shared ? u"abcdef" : u"");
    }
  }
}

TEST(XString, ReservedBlockIsLockedWhileItIsWritten) {
  XString text(u"abc");
  const XString before(text);
  char16_t* buffer = text.reserve(8);
  EXPECT_EQ(std::u16string_view(buffer), u"abc");
  EXPECT_LT(text.refs(), 0);
  const XString during(text);
  EXPECT_NE(during.chars(), text.chars());
  EXPECT_EQ(during.refs(), 1);

  std::memcpy(buffer, u"written", sizeof u"written");
  text.releaseBuffer();
  EXPECT_EQ(text, u"written");
  EXPECT_EQ(text.refs(), 1);
  EXPECT_EQ(text.chars(), buffer);
  EXPECT_EQ(before, u"abc");
  EXPECT_EQ(during, u"abc");

  text.reserve(5);
  text = before;
  EXPECT_NE(text.chars(), before.chars()) << "a locked one is no part of the sharing";
  EXPECT_EQ(before.refs(), 1);
  text.assign(u"written");
  buffer = text.reserve(8);
  EXPECT_EQ(text.reserve(5), buffer) << "there is room already";
  text.releaseBuffer(2);
  EXPECT_EQ(text, u"wr");
  text.reserve(0);
  text.releaseBuffer(most);
  EXPECT_EQ(text.length(), 8) << "cut at the room of the block";
}

TEST(XString, RunningOutOfMemoryLeavesTheEmptyText) {
  XString assigned(u"a"), appended(u"b"), narrow, reserved(u"c"), removed(u"def");
  const XString shared(removed);
  const char* ansi = nullptr;
  char16_t* buffer = assigned.reserve(1);
  {
    const test::NoMemory noMemory;
    assigned.assign(u"longer");
    appended.append(u"longer");
    narrow.assignNarrow("text");
    buffer = reserved.reserve(100);
    removed.remove(0, 1);
    ansi = shared.toAnsi();
  }
  for (const XString* text : {&assigned, &appended, &narrow, &reserved, &removed})
    EXPECT_EQ(text->refs(), -1);
  EXPECT_EQ(buffer, nullptr);
  EXPECT_STREQ(ansi, "");
  EXPECT_EQ(shared, u"def");
  EXPECT_EQ(shared.refs(), 1);
}

TEST(XString, ALengthPast32BitsIsOutOfMemory) {
  XString text(u"ab");
  // Nothing of the view may be read: there is one unit behind it.
  text.append(std::u16string_view(u"x", most));
  EXPECT_EQ(text.refs(), -1);
}

TEST(XString, NarrowTexts) {
  const std::string korean = "\xEA\xB0\x80 and \xF0\x9F\x98\x80";
  XString text = XString::fromNarrow(korean);
  EXPECT_EQ(text, u"\uAC00 and \U0001F600");
  EXPECT_EQ(text.toUtf8(), korean);
  EXPECT_EQ(text.toAnsi(), korean);
  const char16_t* block = text.chars();
  text.assignNarrow("four");
  EXPECT_EQ(text, u"four");
  EXPECT_EQ(text.chars(), block);
  text.assignNarrow(korean);
  EXPECT_EQ(text, u"\uAC00 and \U0001F600");
  EXPECT_EQ(text.chars(), block) << "more bytes than units, but the units fit";
}

TEST(XString, NarrowCopyBelongsToTheObject) {
  const std::int64_t before = test::livingAllocations();
  {
    XString first(u"one");
    const XString second(first);
    const char* narrow = first.toAnsi();
    EXPECT_NE(narrow, second.toAnsi());
    first.assign(u"two");
    EXPECT_STREQ(narrow, "one");
  }
  EXPECT_EQ(test::livingAllocations(), before);
}

TEST(XString, ThreadsMayShareABlock) {
  const XString text(u"counted by everybody");
  const auto copyOften = [own = text]() mutable {
    for (int i = 0; i < 200000; ++i) {
      XString copy(own);
      own = std::move(copy);
    }
  };
  std::thread first(copyOften), second(copyOften);
  first.join();
  second.join();
  EXPECT_EQ(text.refs(), 2) << "this object and the one in the lambda";
}

}  // namespace
}  // namespace tessera
