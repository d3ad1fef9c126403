// Random expressions: the engine and the oracle must agree.

#include "expr/oracle.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <random>

#include "expr/sample_rows.h"

namespace tessera::test {
namespace {

class Generator {
 public:
  explicit Generator(unsigned seed) : random_(seed) {}

  OracleTerm level(int depth) {
    OracleTerm term;
    // Mostly of one type, or nearly nothing would compile.
    const int type = pick(3);
    const int operands = 1 + pick(5);
    for (int i = 0; i < operands; ++i) {
      if (i > 0) term.operators.push_back(operatorOf(type));
      term.group.push_back(depth > 0 && pick(3) == 0 ? level(depth - 1)
                                                     : literal(pick(12) == 0 ? pick(3) : type));
    }
    return term;
  }

 private:
  int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }

  OracleTerm literal(int type) {
    static const char* const texts[] = {"", "a", "ab", "b", "a ", "A"};
    static const double numbers[] = {0, 1, 2, 3, 7, 0.5, 10, -1, -2.5};
    OracleTerm term;
    if (type == 0) term.value = numbers[pick(9)];
    if (type == 1) term.value = std::string(texts[pick(6)]);
    if (type == 2) term.value = pick(2) == 0;
    return term;
  }

  std::string operatorOf(int type) {
    static const char* const numbers[] = {"+", "*", "/", "%", "**", "^",  "+",
                                          "*", "=", "<", ">", ">=", "<=", "#"};
    static const char* const texts[] = {"+", "+", "+", "$", "=", "==", "<>", "<", ">", "!="};
    static const char* const flags[] = {" AND ", " OR ", " .AND. ", " .OR. ", "=", "<", ">=", "#"};
    if (type == 0) return numbers[pick(14)];
    return type == 1 ? texts[pick(10)] : flags[pick(8)];
  }

  std::mt19937 random_;
};

// The numbers of the two agree to the last digits that a text of 15 digits shows.
std::string shown(const OracleValue& value) {
  if (const auto* number = std::get_if<double>(&value)) return literalText(XValue::ofDouble(*number));
  return oracleLiteral(value);
}

TEST(Oracle, AgreesOnRandomExpressions) {
  SampleEngine sample;
  Generator generator(20240309);
  int withValue = 0;
  constexpr int count = 40000;
  for (int i = 0; i < count; ++i) {
    const OracleTerm term = generator.level(3);
    const std::string text = oracleText(term);
    const auto expected = oracleValue(term);
    const std::string actual = sample.evaluate(text);
    if (expected) {
      ++withValue;
      ASSERT_EQ(actual, shown(*expected)) << text;
    } else {
      const bool refused = actual == "! ** or ^ domain error." || actual.ends_with("type mismatch.\n");
      ASSERT_TRUE(refused) << text << " gives " << actual;
    }
  }
  // Neither side may have refused everything.
  EXPECT_GT(withValue, count / 5);
  EXPECT_LT(withValue, count);
}

// The same values through columns: types are known at run time only, and what compiles must give the same.
TEST(Oracle, AgreesWhenTypesComeWithTheRun) {
  SampleEngine sample;
  Generator generator(7);
  const std::pair<const char16_t*, XValue> columns[] = {
      {u"N2", XValue::ofDouble(2)}, {u"TA", XValue::ofText(u"a")}, {u"LT", XValue::ofBool(true)}};
  for (const auto& [name, value] : columns) sample.addColumn(name, value);
  const auto replaceAll = [](std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != text.npos; at = text.find(from, at + to.size())) {
      text.replace(at, from.size(), to);
    }
    return text;
  };
  int compared = 0;
  for (int i = 0; i < 20000; ++i) {
    const OracleTerm term = generator.level(2);
    const auto expected = oracleValue(term);
    std::string text = oracleText(term);
    // A column compares by "==" as literals do by "=".
    if (!expected || text.find("==") != text.npos) continue;
    text = replaceAll(replaceAll(text, "\"a\"", "TA"), ".T.", "LT");
    EXPECT_EQ(sample.evaluate(text), shown(*expected)) << text;
    ++compared;
  }
  EXPECT_GT(compared, 2000);
}

}  // namespace
}  // namespace tessera::test
