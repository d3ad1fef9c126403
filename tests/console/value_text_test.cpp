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

using Limits = std::numeric_limits<std::int64_t>;
constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(ValueText, WritesAndReadsBackTheSame) {
  const std::pair<XValue, std::string> rows[] = {{XValue(), "empty"},
                                                 {XValue::null(), "null"},
                                                 {XValue::ofBool(true), "true"},
                                                 {XValue::ofInt(-1), "-1"},
                                                 {XValue::ofInt64(42), "42L"},
                                                 {XValue::ofInt64(Limits::min()), "-9223372036854775808L"},
                                                 {XValue::ofDouble(2), "2.0"},
                                                 {XValue::ofDouble(1.0 / 3), "0.3333333333333333"},
                                                 {XValue::ofDouble(5e-324), "5e-324"},
                                                 {XValue::ofDouble(-infinity), "-1e999"},
                                                 {XValue::ofDate(45413.5625), "date:2024-05-01T13:30:00"},
                                                 {XValue::ofError(E_INVALIDARG), "error:0x80070057"}};
  for (const auto& [value, text] : rows) {
    EXPECT_EQ(valueText(value), text);
    const auto read = valueOfWord(text);
    ASSERT_TRUE(read) << text;
    EXPECT_EQ(*read, value) << text;
  }
  EXPECT_TRUE(std::signbit(valueOfWord(valueText(XValue::ofDouble(-0.0)))->asDouble()));
  // Types that a host may hand out and a command cannot name.
  const std::pair<XValue, std::string> others[] = {{integer(VT_I1, -5), "-5"},
                                                   {integer(VT_UI4, 4294967295), "4294967295L"},
                                                   {integer(VT_UI8, -1), "18446744073709551615L"},
                                                   {XValue::ofDouble(-std::nan("")), "nan"},
                                                   {XValue::ofDate(1e9), "date:1000000000.0"}};
  for (const auto& [value, text] : others) EXPECT_EQ(valueText(value), text);
}

TEST(ValueText, TakesOtherWordsAsTexts) {
  for (const char* word : {"name",
                           "TRUE",
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
                           "1.2.3"})
    EXPECT_FALSE(valueOfWord(word)) << word;
}

TEST(QuotedText, EscapesAsJson) {
  const std::pair<std::u16string, std::string> rows[] = {
      {u"", R"("")"},
      {u"say \"hi\" \\ / ", R"("say \"hi\" \\ / ")"},
      {u"\b\f\n\r\t\x01", R"("\b\f\n\r\t\u0001")"},
      {u"K\u00F6ln \U0001F600", "\"K\xC3\xB6ln \xF0\x9F\x98\x80\""}};
  for (const auto& [text, quoted] : rows) {
    EXPECT_EQ(quotedText(text), quoted);
    const auto tokens = splitTokens(quoted);
    ASSERT_TRUE(tokens && tokens->size() == 1) << quoted;
    EXPECT_EQ(tokens->front().text.view(), text) << quoted;
  }
  const std::u16string halves = {0xDC00, u'a', 0xD800};
  EXPECT_EQ(quotedText(halves), R"("\udc00a\ud800")");
}

TEST(CommandLine, SplitsIntoTokens) {
  const std::pair<std::string, std::string> rows[] = {{"  a\t b  ", "a|b|"},
                                                      {R"("two words" x="1")", "two words|x=\"1\"|"},
                                                      {R"("" "\u0041\/\n")", "|A/\n|"},
                                                      {R"("\ud83d\ude00")", "\xF0\x9F\x98\x80|"}};
  for (const auto& [line, expected] : rows) {
    const auto tokens = splitTokens(line);
    ASSERT_TRUE(tokens) << line;
    std::string texts;
    for (const Token& token : *tokens) texts += token.utf8() + "|";
    EXPECT_EQ(texts, expected) << line;
  }
  for (const char* line : {"\"", "\"open", R"("end\)", R"("a"b)", R"("\x")", R"("\u12")", R"("\u12g4")"})
    EXPECT_FALSE(splitTokens(line)) << line;
  // What is in quotes is a text, whatever it looks like.
  const auto values = splitTokens(R"(42 "42" true "true" word)");
  std::vector<VarType> types;
  for (const Token& token : *values) types.push_back(token.value().type());
  EXPECT_EQ(types, (std::vector<VarType>{VT_I4, VT_BSTR, VT_BOOL, VT_BSTR, VT_BSTR}));
}

}  // namespace
}  // namespace tessera
