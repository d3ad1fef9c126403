#include "tools/tessera/value_text.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "tools/tessera/command_line.h"

namespace tessera {
namespace {

XValue integer(VarType type, std::int64_t number) {
  XValue value;
  value.setInteger(type, number);
  return value;
}

XValue real4(float number) {
  XValue value;
  value.setFloat(number);
  return value;
}

struct ValueRow {
  XValue value;
  std::string text;
};

TEST(ValueText, WritesAndReadsBackTheSame) {
  const ValueRow rows[] = {
      {XValue(), "empty"},
      {XValue::null(), "null"},
      {XValue::ofBool(true), "true"},
      {XValue::ofBool(false), "false"},
      {XValue::ofInt(42), "42"},
      {XValue::ofInt(-1), "-1"},
      {XValue::ofInt(std::numeric_limits<std::int32_t>::min()), "-2147483648"},
      {XValue::ofInt64(42), "42L"},
      {XValue::ofInt64(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808L"},
      {XValue::ofDouble(1.5), "1.5"},
      {XValue::ofDouble(2), "2.0"},
      {XValue::ofDouble(0.1), "0.1"},
      {XValue::ofDouble(1.0 / 3), "0.3333333333333333"},
      {XValue::ofDouble(-0.0), "-0.0"},
      {XValue::ofDouble(1e300), "1e+300"},
      {XValue::ofDouble(5e-324), "5e-324"},
      {XValue::ofDouble(std::numeric_limits<double>::infinity()), "1e999"},
      {XValue::ofDouble(-std::numeric_limits<double>::infinity()), "-1e999"},
      {XValue::ofDate(45413.5625), "date:2024-05-01T13:30:00"},
      {XValue::ofDate(0), "date:1899-12-30T00:00:00"},
      {XValue::ofError(E_INVALIDARG), "error:0x80070057"},
      {XValue::ofError(DISP_E_OVERFLOW), "error:0x8002000A"},
  };
  for (const ValueRow& row : rows) {
    EXPECT_EQ(valueText(row.value), row.text);
    const auto read = valueOfWord(row.text);
    ASSERT_TRUE(read) << row.text;
    EXPECT_EQ(*read, row.value) << row.text;
  }
  EXPECT_TRUE(std::signbit(valueOfWord("-0.0")->asDouble()));
}

// Types that a host may hand out and a command cannot name.
TEST(ValueText, WritesEveryNumberType) {
  const ValueRow rows[] = {
      {integer(VT_I1, -5), "-5"},
      {integer(VT_UI2, 65535), "65535"},
      {integer(VT_UI4, 7), "7"},
      {integer(VT_UI4, 4294967295), "4294967295L"},
      {integer(VT_UI8, -1), "18446744073709551615L"},
      {real4(0.1f), "0.1"},
      {real4(3), "3.0"},
      {XValue::ofDouble(-std::nan("")), "nan"},
      {XValue::ofDate(1e9), "date:1000000000.0"},
  };
  for (const ValueRow& row : rows) EXPECT_EQ(valueText(row.value), row.text);
}

TEST(ValueText, TakesOtherWordsAsTexts) {
  for (const char* word : {"name",
                           "TRUE",
                           "Empty",
                           "+1",
                           "1.",
                           ".5",
                           "1e",
                           "1e+",
                           "0x10",
                           "42l",
                           "2147483648",
                           "1L2",
                           "nan",
                           "inf",
                           "date:tomorrow",
                           "date:2024-13-01",
                           "error:80070057",
                           "error:0x",
                           "error:0x123456789",
                           "-",
                           "L",
                           "1,5",
                           "1.2.3"}) {
    EXPECT_FALSE(valueOfWord(word)) << word;
  }
}

TEST(QuotedText, EscapesAsJson) {
  struct Row {
    std::u16string text;
    std::string quoted;
  };
  const Row rows[] = {
      {u"", R"("")"},
      {u"say \"hi\" \\ / ", R"("say \"hi\" \\ / ")"},
      {u"\b\f\n\r\t\x01", R"("\b\f\n\r\t\u0001")"},
      {u"K\u00F6ln \U0001F600", "\"K\xC3\xB6ln \xF0\x9F\x98\x80\""},
      {u"\uFFFF", "\"\xEF\xBF\xBF\""},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(quotedText(row.text), row.quoted);
    const auto tokens = splitTokens(row.quoted);
    ASSERT_TRUE(tokens && tokens->size() == 1) << row.quoted;
    EXPECT_EQ(tokens->front().text.view(), row.text) << row.quoted;
  }
  const std::u16string halves = {0xDC00, u'a', 0xD800};
  EXPECT_EQ(quotedText(halves), R"("\udc00a\ud800")");
}

TEST(CommandLine, SplitsIntoTokens) {
  struct Row {
    std::string line;
    std::vector<std::string> tokens;
  };
  const Row rows[] = {
      {"", {}},
      {"  a\t b  ", {"a", "b"}},
      {R"("two words" x="1")", {"two words", "x=\"1\""}},
      {R"("" "\u0041\/\n")", {"", "A/\n"}},
      {R"("\ud83d\ude00")", {"\xF0\x9F\x98\x80"}},
  };
  for (const Row& row : rows) {
    const auto tokens = splitTokens(row.line);
    ASSERT_TRUE(tokens) << row.line;
    std::vector<std::string> texts;
    for (const Token& token : *tokens) texts.push_back(token.utf8());
    EXPECT_EQ(texts, row.tokens) << row.line;
  }
  for (const char* line : {"\"", "\"open", R"("end\)", R"("a"b)", R"("\x")", R"("\u12")", R"("\u12g4")"}) {
    EXPECT_FALSE(splitTokens(line)) << line;
  }
}

// What is in quotes is a text, whatever it looks like.
TEST(CommandLine, TellsValuesFromTexts) {
  const auto tokens = splitTokens(R"(42 "42" true "true" word)");
  ASSERT_TRUE(tokens);
  const VarType types[] = {VT_I4, VT_BSTR, VT_BOOL, VT_BSTR, VT_BSTR};
  ASSERT_EQ(tokens->size(), std::size(types));
  for (std::size_t i = 0; i < std::size(types); ++i) EXPECT_EQ((*tokens)[i].value().type(), types[i]) << i;
}

}  // namespace
}  // namespace tessera
