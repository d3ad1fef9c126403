// Which characters enter an edit box, and with which text it opens.

#include <gtest/gtest.h>

#include "config/child_spec.h"
#include "interaction/edit_filter.h"

namespace tessera {
namespace {

constexpr std::int32_t numeric = input_type::numeric;

// "|" marks the caret, "[" and "]" the selection.
struct Marked {
  std::u16string text;
  Selection selection;
};

Marked marked(std::u16string_view text) {
  Marked result;
  for (const char16_t character : text) {
    const auto place = static_cast<std::int32_t>(result.text.size());
    if (character == u'[' || character == u'|') result.selection.start = place;
    if (character == u']' || character == u'|') result.selection.end = place;
    if (character != u'[' && character != u']' && character != u'|') result.text += character;
  }
  return result;
}

TEST(EditFilter, Characters) {
  struct Row {
    const char16_t* text;
    char16_t character;
    EditRules rules;
    bool enters;
  };
  const Row table[] = {
      // Any box.
      {u"|", u'x', {0, 3, 0}, true},
      {u"abc|", u'x', {0, 3, 0}, false},
      {u"ab[c]", u'x', {0, 3, 0}, true},
      {u"|abc", 8, {0, 3, 0}, true},  // Backspace
      {u"abc|", 13, {0, 9, 0}, false},
      {u"abc|", 127, {0, 9, 0}, false},
      {u"|", u'-', {0, 9, 0}, true},
      {u"|", u'x', {0, 0, 0}, false},
      // Characters of two units enter as a whole or not at all.
      {u"ab|", 0xD83D, {0, 3, 0}, false},
      {u"ab|", 0xD83D, {0, 4, 0}, true},
      {u"a[b]", 0xD83D, {0, 3, 0}, true},
      {u"ab\xD83D|", 0xDE00, {0, 4, 0}, true},
      {u"ab|", 0xDE00, {0, 4, 0}, false},
      {u"|", 0xDE00, {0, 4, 0}, false},
      // What a number may hold.
      {u"|", u'5', {numeric, 9, 2}, true},
      {u"|", u'x', {numeric, 9, 2}, false},
      {u"|", u'٣', {numeric, 9, 2}, false},
      {u"|", u'-', {numeric, 9, 2}, true},
      {u"1|", u'-', {numeric, 9, 2}, false},
      {u"|1", u'-', {numeric, 9, 2}, true},
      {u"|-1", u'-', {numeric, 9, 2}, false},
      {u"[-]1", u'-', {numeric, 9, 2}, true},
      {u"|-1", u'2', {numeric, 9, 2}, false},
      {u"|", u'.', {numeric, 9, 2}, false},
      {u"-|", u'.', {numeric, 9, 2}, false},
      {u"-1|", u'.', {numeric, 9, 2}, true},
      {u"1.|5", u'.', {numeric, 9, 2}, false},
      {u"1|.5", u'.', {numeric, 9, 2}, false},
      {u"1[.]5", u'.', {numeric, 9, 2}, true},
      // Digits after the point.
      {u"1.2|", u'3', {numeric, 9, 2}, true},
      {u"1.23|", u'4', {numeric, 9, 2}, false},
      {u"1|.23", u'4', {numeric, 9, 2}, true},
      {u"1.2[3]", u'4', {numeric, 9, 2}, true},
      {u"12|34", u'.', {numeric, 9, 2}, true},
      {u"1|234", u'.', {numeric, 9, 2}, false},
      {u"1|", u'.', {numeric, 9, 0}, false},
      {u"1|", u'.', {numeric, 9, -1}, false},
      {u"1|", u'2', {numeric, 9, -1}, true},
      {u"1|.", u'2', {numeric, 9, 0}, true},
      // The limit does not count the point, else the minus, and only in a box that is numeric and no more.
      {u"1.2|", u'3', {numeric, 3, 2}, true},
      {u"1.23|", u'4', {numeric, 3, 3}, false},
      {u"-12|", u'3', {numeric, 3, 0}, true},
      {u"-1.2|", u'3', {numeric, 3, 2}, false},
      {u"123|", u'.', {numeric, 3, 2}, false},
      {u"1.2|", u'3', {numeric | input_type::password, 3, 2}, false},
      {u"1.2|", u'3', {input_type::upper, 3, 2}, false},
      {u"1.234|", 8, {numeric, 3, 2}, true},
      {u"[1.234]", u'9', {numeric, 3, 2}, true},
  };
  for (const Row& row : table) {
    const Marked box = marked(row.text);
    EXPECT_EQ(mayEnter(box.text, box.selection, row.character, row.rules), row.enters)
        << XString(row.text).toUtf8() << " + " << static_cast<int>(row.character) << " limit "
        << row.rules.limit << " decimals " << row.rules.decimals;
  }
}

// A back end may report a selection that was dragged to the left, or one that the text no longer has.
TEST(EditFilter, SelectionsOfAnyKind) {
  EXPECT_TRUE(mayEnter(u"abc", {3, 1}, u'x', {0, 2, 0}));
  EXPECT_FALSE(mayEnter(u"abc", {7, 9}, u'x', {0, 3, 0}));
  EXPECT_TRUE(mayEnter(u"abc", {-4, 2}, u'x', {0, 2, 0}));
}

TEST(EditFilter, TextAtOpening) {
  struct Row {
    const char16_t* text;
    bool numeric;
    std::int32_t limit;
    std::int32_t decimals;
    const char16_t* fitting;
  };
  const Row table[] = {
      {u"abcdef", false, 9, 0, u"abcdef"},
      {u"abcdef", false, 4, 0, u"abcd"},
      {u"a.bcdef", false, 4, 0, u"a.bc"},
      {u"1.2345", true, 9, 2, u"1.23"},
      {u"1.2", true, 9, 2, u"1.2"},
      {u"1.25", true, 9, 0, u"1."},
      {u"1.25", true, 9, -1, u"1"},
      {u"1.25", true, 9, -7, u"1"},
      {u"1.25", true, 9, 2147483647, u"1.25"},
      {u"1.234", true, 3, 9, u"1.23"},
      {u"1.234", true, 1, 9, u"1"},
      {u"123.4", true, 3, 9, u"123"},
      {u"123456", true, 3, 9, u"123"},
      {u"1.2345", true, 3, -1, u"1"},
      {u"1.2345", true, 2147483647, 9, u"1.2345"},
      {u"x", false, 0, 0, u""},
      {u"ab\U0001F600c", false, 3, 0, u"ab"},
      {u"ab\U0001F600c", false, 4, 0, u"ab\U0001F600"},
      {u"\U0001F600", false, 1, 0, u""},
      {u"1.\U0001F600", true, 9, 1, u"1."},
  };
  for (const Row& row : table) {
    const EditRules rules{0, row.limit, row.decimals};
    EXPECT_EQ(fittingText(row.text, row.numeric, rules).toUtf8(), XString(row.fitting).toUtf8())
        << XString(row.text).toUtf8() << " limit " << row.limit << " decimals " << row.decimals;
  }
}

}  // namespace
}  // namespace tessera
