// What the operators do with values of all types.

#include <gtest/gtest.h>
#include <limits>

#include "expr/sample_rows.h"

namespace tessera::test {
namespace {

struct Row {
  const char* text;
  const char* result;
};

constexpr char mismatch[] = "Operator/operand type mismatch.\n";

class OperatorsTest : public testing::Test {
 protected:
  OperatorsTest() {
    sample.addColumn(u"WORD", XValue::ofText(u"x"));
    sample.addColumn(u"TAILED", XValue::ofText(u"x \t"));
    sample.addColumn(u"DIGITS", XValue::ofText(u"12abc"));
    sample.addColumn(u"BORN", XValue::ofDate(45292));
    sample.addColumn(u"YES", XValue::ofBool(true));
    sample.addColumn(u"HOLE", XValue());
    sample.addColumn(u"BIG", XValue::ofInt64(5));
    sample.addColumn(u"OTHER", XValue::null());
  }
  template <std::size_t size>
  void check(const Row (&rows)[size]) {
    for (const Row& row : rows) EXPECT_EQ(sample.evaluate(row.text), row.result) << row.text;
  }
  SampleEngine sample;
};

TEST_F(OperatorsTest, Numbers) {
  const Row rows[] = {
      {"7/2", "3.5"},
      {"10/0", "10"},
      {"0/0", "0"},
      {"-3/0", "-3"},
      {"7%3", "1"},
      {"-7%3", "-1"},
      {"7.5%2", "1.5"},
      {"2^10", "1024"},
      {"0.1+0.2", "0.3"},
      {"0**2", "! ** or ^ domain error."},
      {"(-2)**2", "! ** or ^ domain error."},
      {"\"a\"*2", mismatch},
      {"YES*2", "0"},
      {"DIGITS*2", "24"},
      {"BIG+1", "6"},
      {"HOLE+1", "1"},
      {"BORN*1", "45292"},
      {"OTHER+1", "1"},
      {".T.+1", mismatch},
      {"-\"a\"", mismatch},
  };
  check(rows);
}

TEST_F(OperatorsTest, Texts) {
  const Row rows[] = {
      {"\"a\" + \"b\"", "\"ab\""},       {"\"a \" + \"b\"", "\"a b\""},
      {"WORD + \"b\"", "\"xb\""},        {"WORD + 1", "\"x1\""},
      {"1.5 + WORD", "\"1.5x\""},        {"WORD + BORN", "\"x\""},
      {"WORD + HOLE", "\"x\""},          {"-WORD", "\"x\""},
      {"-TAILED + \"|\"", "\"x \\t|\""}, {"WORD-WORD", "\"xx\""},
      {"\"ab\" $ \"xabx\"", ".T."},      {"\"AB\" $ \"xabx\"", ".F."},
      {"\"\" $ \"x\"", ".T."},           {"\"\" $ \"\"", ".T."},
      {"\"xx\" $ WORD", ".F."},          {"1 $ \"1\"", mismatch},
      {"AMOUNT $ \"a250b\"", ".T."},
  };
  check(rows);
}

TEST_F(OperatorsTest, Dates) {
  const Row rows[] = {
      {"{2007-01-31} + 1", "{2007-02-01}"},
      {"1 + {2007-01-31}", "{2007-02-01}"},
      {"{2007-01-31} + 0.5", "{2007-01-31 12:00:00}"},
      {"{2007-01-31}-{2007-01-01}", mismatch},
      {"{2007-01-31}+{2007-01-01}", mismatch},
      {"{2007-01-31} - 1", "{2007-01-30}"},
      {"BORN+1", "{2024-01-02}"},
      {"-BORN", "-45292"},
      {"{9999-12-31}+1", "<empty>"},
      {"BORN+10000000", "<empty>"},
      {"{0100-01-01}+-1", "<empty>"},
      {"BORN+YES", "{2024-01-01}"},
  };
  check(rows);
}

TEST_F(OperatorsTest, ComparisonsOfOneType) {
  const Row rows[] = {
      {"1=1", ".T."},
      {"1==1", ".T."},
      {"1#2", ".T."},
      {"1!=1", ".F."},
      {"1<>2", ".T."},
      {"2>1", ".T."},
      {"2>2", ".F."},
      {"2>=2", ".T."},
      {"1<2", ".T."},
      {"2<=1", ".F."},
      {"{2007-01-01}<{2007-01-02}", ".T."},
      {"{2007-01-01}={2007-01-01}", ".T."},
      {".T.>.F.", ".F."},
      {".F.>.T.", ".T."},
      {".T.=.T.", ".T."},
      {".T.#.F.", ".T."},
      {".T.<=.F.", ".T."},
      {"\"a\"<\"b\"", ".T."},
      {"\"B\"<\"a\"", ".T."},
      {"\"a \"=\"a\"", ".T."},
      {"\"a\"=\" a\"", ".F."},
      {"\"a \t\"=\"a\"", ".T."},
      {"\"a \"#\"a\"", ".T."},
      {"\"x\" == \"x \"", ".F."},
      {"\"a \">\"a\"", ".T."},
      {"\"a\"=\"A\"", ".F."},
      {"1=\"1\"", mismatch},
      {".T.=1", mismatch},
      {"{2007-01-01}=1", mismatch},
      {"{}={}", mismatch},
  };
  check(rows);
}

TEST_F(OperatorsTest, ComparisonsByTheTypesOfTheRun) {
  const Row rows[] = {
      {"WORD = \"x \"", ".T."},
      {"WORD == \"x \"", ".T."},
      {"WORD # \"x \"", ".T."},
      {"TAILED > \"x\"", ".T."},
      {"AMOUNT = 250", ".T."},
      {"AMOUNT > \"100\"", ".T."},
      {"DIGITS = 12", ".T."},
      {"YES = .T.", ".T."},
      {"YES = WORD", ".F."},
      {"HOLE = .F.", ".T."},
      {"BORN = {2024-01-01}", ".T."},
      {"BORN = 45292", ".T."},
      {"BORN > WORD", ".T."},
      {"HOLE = \"\"", ".T."},
      {"HOLE = 0", ".T."},
      {"HOLE = HOLE", ".T."},
      {"BIG = 5", ".T."},
      {"IIF(.T.,STATUS,\"\") = \"U\"", ".T."},
  };
  check(rows);
}

TEST_F(OperatorsTest, Logic) {
  const Row rows[] = {
      {".T. AND .T.", ".T."}, {".T. AND .F.", ".F."}, {".F. OR .T.", ".T."},   {".F. OR .F.", ".F."},
      {"NOT .T.", ".F."},     {"NOT 1", mismatch},    {"1 AND .T.", mismatch}, {"YES AND .T.", ".T."},
      {"WORD OR .F.", ".F."}, {"NOT WORD", ".T."},    {"1 NOT .T.", ".F."},
  };
  check(rows);
}

TEST_F(OperatorsTest, NothingIsSkipped) {
  const Row rows[] = {
      {"IIF(.T.,1,LOG(-1))", "! LOG(): Zero or negative used as argument."},
      {"(.F.) AND (SQRT(-1)>0)", "! SQRT(): argument cannot be negative"},
      {"LOG10(0)+SQRT(-1)", "! Cannot use 0 or negative as the argument for LOG10();"},
  };
  check(rows);
}

TEST_F(OperatorsTest, WhatIsNoNumberEqualsEverything) {
  sample.addColumn(u"ODD", XValue::ofDouble(std::numeric_limits<double>::quiet_NaN()));
  const Row rows[] = {{"ODD=1", ".T."},  {"ODD#1", ".F."},  {"ODD<1", ".F."},
                      {"ODD<=1", ".F."}, {"ODD>=1", ".F."}, {"IIF(ODD>1,1,2)", "2"}};
  check(rows);
}

TEST_F(OperatorsTest, AHostWithoutRowsLeavesEmptyValues) {
  ExpressionEngine engine;
  engine.addColumnName(u"A");
  EvalState state;
  const std::pair<const char16_t*, const char*> rows[] = {
      {u"A", "<empty>"}, {u"CURREC", "0"}, {u"STATUS", "0"}, {u"GFSUM(A)", "0"}, {u"COLVAL(1)", "<empty>"}};
  for (const auto& [text, expected] : rows) {
    const XExprProgram* program = engine.compile(text);
    ASSERT_NE(program, nullptr);
    const XValue* value = program->evaluate(state);
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(literalText(*value), expected);
  }
}

}  // namespace
}  // namespace tessera::test
