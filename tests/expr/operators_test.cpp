// What the operators do with values of all types.

#include <limits>

#include "expr/sample_test.h"

namespace tessera::test {
namespace {

class OperatorsTest : public SampleTest {
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
};

TEST_F(OperatorsTest, Numbers) {
  check(R"(
0.1+0.2 => 0.3 | 0/0 => 0 | (-2)**2 => ! ** or ^ domain error.
"a"*2 => Operator/operand type mismatch. | YES*2 => 0 | DIGITS*2 => 24 | BIG+1 => 6 | HOLE+1 => 1
BORN*1 => 45292 | OTHER+1 => 1 | .T.+1 => Operator/operand type mismatch.
-"a" => Operator/operand type mismatch.)");
}

TEST_F(OperatorsTest, Texts) {
  check(R"(
"a" + "b" => "ab" | "a " + "b" => "a b" | WORD + "b" => "xb" | WORD + 1 => "x1" | 1.5 + WORD => "1.5x"
WORD + BORN => "x" | WORD + HOLE => "x" | -WORD => "x" | -TAILED + "|" => "x \t|" | WORD-WORD => "xx"
"ab" $ "xabx" => .T. | "AB" $ "xabx" => .F. | "" $ "x" => .T. | "" $ "" => .T. | "xx" $ WORD => .F.
1 $ "1" => Operator/operand type mismatch. | AMOUNT $ "a250b" => .T.)");
}

TEST_F(OperatorsTest, Dates) {
  check(R"(
{2007-01-31} + 1 => {2007-02-01} | 1 + {2007-01-31} => {2007-02-01}
{2007-01-31} + 0.5 => {2007-01-31 12:00:00} | {2007-01-31}-{2007-01-01} => Operator/operand type mismatch.
{2007-01-31}+{2007-01-01} => Operator/operand type mismatch. | {2007-01-31} - 1 => {2007-01-30}
BORN+1 => {2024-01-02} | -BORN => -45292 | {9999-12-31}+1 => <empty> | BORN+10000000 => <empty>
{0100-01-01}+-1 => <empty> | BORN+YES => {2024-01-01})");
}

TEST_F(OperatorsTest, ComparisonsOfOneType) {
  check(R"(
{2007-01-01}<{2007-01-02} => .T. | {2007-01-01}={2007-01-01} => .T.
"a "="a" => .T. | "a"=" a" => .F. | "a "#"a" => .T. | "x" == "x " => .F. | "a ">"a" => .T.
"a"="A" => .F. | 1="1" => Operator/operand type mismatch. | .T.=1 => Operator/operand type mismatch.
{2007-01-01}=1 => Operator/operand type mismatch. | {}={} => Operator/operand type mismatch.)");
  expect("\"a \t\"=\"a\"", ".T.");
}

TEST_F(OperatorsTest, ComparisonsByTheTypesOfTheRun) {
  check(R"(
WORD = "x " => .T. | WORD == "x " => .T. | WORD # "x " => .T. | TAILED > "x" => .T. | AMOUNT = 250 => .T.
AMOUNT > "100" => .T. | DIGITS = 12 => .T. | YES = .T. => .T. | YES = WORD => .F. | HOLE = .F. => .T.
BORN = {2024-01-01} => .T. | BORN = 45292 => .T. | BORN > WORD => .T. | HOLE = "" => .T. | HOLE = 0 => .T.
HOLE = HOLE => .T. | BIG = 5 => .T. | IIF(.T.,STATUS,"") = "U" => .T.)");
}

TEST_F(OperatorsTest, Logic) {
  check(R"(
NOT .T. => .F. | NOT 1 => Operator/operand type mismatch. | 1 AND .T. => Operator/operand type mismatch. | YES AND .T. => .T.
WORD OR .F. => .F. | NOT WORD => .T. | 1 NOT .T. => .F.)");
}

TEST_F(OperatorsTest, NothingIsSkipped) {
  check(R"(
IIF(.T.,1,LOG(-1)) => ! LOG(): Zero or negative used as argument.
(.F.) AND (SQRT(-1)>0) => ! SQRT(): argument cannot be negative
LOG10(0)+SQRT(-1) => ! Cannot use 0 or negative as the argument for LOG10();)");
}

TEST_F(OperatorsTest, WhatIsNoNumberEqualsEverything) {
  sample.addColumn(u"ODD", XValue::ofDouble(std::numeric_limits<double>::quiet_NaN()));
  check(R"(
ODD=1 => .T. | ODD#1 => .F. | ODD<1 => .F. | ODD<=1 => .F. | ODD>=1 => .F. | IIF(ODD>1,1,2) => 2)");
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
