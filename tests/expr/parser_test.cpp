// How texts group, and what is wrong with those that are no expressions.

#include "expr/expr_errors.h"
#include "expr/sample_test.h"

namespace tessera::test {
namespace {

class ParserTest : public SampleTest {};

TEST_F(ParserTest, OperatorsGroupByPriority) {
  check(R"(
2+3*4 => 14 | 2*3+4 => 10 | 10-3-2 => 5 | 10-3+2 => 9 | 2**3**2 => 64 | 2*3**2 => 18 | 2**3*2 => 16
2+3*4>5 => Operator/operand type mismatch. | 1+2>5 => .F. | 7>2+3 => .T. | 10-2*3 => 4 | 2*-3 => -6
2*-AMOUNT => -500 | 5>3-1 => .T. | 8/4/2 => 1 | 8/4*2 => 4 | 7%4+1 => 4 | 1=1=.T. => .T. | 3>2=.T. => .T.
3>2>=1 => Operator/operand type mismatch. | 3>=2>.F. => .F. | .T. AND .F. OR .T. => .T.
.F. AND .F. OR .T. => .F. | .T. OR .F. AND .F. => .F. | (2+3)*4 => 20 | ((2+3)*(4)) => 20
NOT .F. = .T. => .T. | NOT 1=1 => Operator/operand type mismatch. Operator/operand type mismatch.
.T. AND NOT .F. => Operator/operand type mismatch. | .T. AND (NOT .F.) => .T.
1 = AMOUNT AND .T. => Operator/operand type mismatch. | (1=1) AND (2=2) => .T.
(1=1)AND(2=2) => Missing operator. Function AND() is not implemented.)");
}

TEST_F(ParserTest, SignsBindTightest) {
  check(R"(
-5 => -5 | - 5 => -5 | +5 => 5 | 5-3 => 2 | 5 - 3 => 2 | 5 -3 => 2 | 5--3 => 8 | 5+-3 => 2
5-AMOUNT => -245 | -AMOUNT => -250 | --AMOUNT => -250 | -AMOUNT+1 => -249 | -2**2 => ! ** or ^ domain error.
2**-1 => 0.5 | -.5 => -0.5 | +AMOUNT*2 => 500 | -(2+3) => -5 | 2-(1-1) => 2)");
}

TEST_F(ParserTest, Literals) {
  check(R"(
12 => 12 | 1.5 => 1.5 | .5 => 0.5 | 5. => 5 | 1.2.3 => 1.2 | .. => 0
1e3 => Missing operator. Variable 'e3' is not found. | "a" => "a" | 'a"b' => "a\"b" | [a] => "a" | "" => ""
"a\"b" => "a\"b" | "a\qb" => "a\\qb" | "\b\n\r\t\'\[\]\\" => "\b\n\r\t'[]\\" | [a\]b] => "a]b"
{2007-03-09} => {2007-03-09} | {03/09/2007} => {2007-03-09} | {3/9/07 1:30:05 pm} => {2007-03-09 13:30:05}
{2007/3/9} => {2007-03-09} | {13:30} => {1899-12-30 13:30:00} | {} => <empty> | {2007-02-30} => <empty>
{never} => <empty> | .T. => .T. | .t. => .T. | .Y. => .T. | .f. => .F. | .n. => .F.
.X. => Syntax error "X". Missing expression. | .TRUE. => Syntax error "TRUE". Missing expression.)");
}

TEST_F(ParserTest, TheFirstLineCounts) {
  check(R"(
1;;+2 => 3)");
  expect(" \t 1 ", "1");
  expect("1\n+2", "1");
  expect("1\r+2", "1");
  expect("1;\n+2", "3");
  expect("1 ;  \r\n + 2", "3");
  expect("(1;\n)", "1");
  expect("1+;\n-2", "-1");
  expect("5;\n-2", "3");
  expect("\"a\nb\"", "Missing '\"'.");
  expect("1+\n2", "Missing operand.");
  EXPECT_EQ(sample.evaluateWide(std::u16string_view(u"1\0+2", 4)), "1");
}

TEST_F(ParserTest, OperatorWords) {
  check(R"(
.T. .and. .F. => .F. | .T..OR..F. => .T. | .NOT..T. => .F. | not .T. => .F. | !.T. => .F. | ! .F. => .T.
.T. AND,.T. => .T. | .F. OR.T. => Missing '.'. Syntax error "". Variable 'T' is not found.
.T. AND => Missing operand. Operator/operand type mismatch.)");
}

TEST_F(ParserTest, ErrorLists) {
  check(R"(
() => Missing expression. | 1+ => Missing operand. | *2 => Missing operand.
1+*2 => Missing operand. Missing operand. | 1 2 => Missing operator. | 1 "a" => Missing operator.
1 (2) => Missing operator. | 1 LEN("a") => Missing operator. | (1 => Missing ')'. | ((1) => Missing ')'.
1) => Missing '('. | ) => Missing '('. Missing expression. | NAME,REGION => Syntax error ",REGION".
1, => Syntax error ",". | ,1 => Syntax error ",1". Missing expression. | (1,2) => Missing ')'.
"abc => Missing '"'. | 'abc => Missing '''. | [abc => Missing ']'. | {2007-01-01 => Missing '}'.
.T => Missing '.'. | 1 ? 2 => Syntax error "? 2". Syntax error "? 2". Syntax error "? 2". Missing operator.
foo => Variable 'foo' is not found. | foo + bar => Variable 'foo' is not found. Variable 'bar' is not found.
NOSUCH(1) => Function NOSUCH() is not implemented.
NOSUCH(foo) => Function NOSUCH() is not implemented. Variable 'foo' is not found.
LEN( => Function LEN() is missing ')'. Too few arguments for function LEN().
LEN("a" => Function LEN() is missing ')'. | LEN() => Too few arguments for function LEN().
LEN("a",1) => Too many arguments for function LEN(). | PI(1) => Too many arguments for function PI().
PI(,) => Too many arguments for function PI(). | LEN(1) => Function LEN() argument 1 type mismatch.
LEFT("a","b") => Function LEFT() argument 2 type mismatch.
LEFT(1,"b") => Function LEFT() argument 1 type mismatch. Function LEFT() argument 2 type mismatch.
DAY({}) => Function DAY() argument 1 type mismatch. | 1+"a" => Operator/operand type mismatch.
1+"a"+2 => Operator/operand type mismatch. | ROUND(1.5,0)*2 => Operator/operand type mismatch.
1 2 + => Missing operator. Missing operand. | STATUS = "I" => Operator/operand type mismatch.)");
  expect("", "Missing expression.");
  expect("   ", "Missing expression.");
}

TEST_F(ParserTest, NamesAreMatchedByTheirBeginning) {
  check(R"(
AMOUNT => 250 | amount => 250 | NAME => "Kim" | CURREC => 2 | currec => 2 | CURR => 0
F(1) => Missing operator. | NAME(1) => Missing operator. | NAME REGION => "North" | 1+NAME AMOUNT => 251
1+NAME AMOUNT+2 => 253 | ALLT(" a ") => "a" | alltrim(" a ") => "a"
ALLTRIMS(" a ") => Function ALLTRIMS() is not implemented. | AB(1) => Function AB() is not implemented.
LENG("a") => Function LENG() is not implemented. | VARTYPE(DATET(2024,1,1,5)) => "D"
HOUR(DATET(2024,1,1,5)) => 5 | LOG1(1000) => 3 | LOG(1) => 0 | GFSU(AMOUNT) => 175 | GFSUM(AMOUNT) => 390
SECO() => 52205 | COLU(1) => Function COLU() is not implemented. | KEYW(1) => 2
T(1) => Function T() is not implemented.)");
  // The column keeps the text as it was typed.
  sample.rows.asked.clear();
  EXPECT_EQ(sample.evaluate("amo"), "<empty>");
  EXPECT_EQ(sample.rows.asked, std::vector<std::string>{"amo"});
  sample.addColumn(u"LEFTOVER", XValue::ofDouble(1));
  EXPECT_EQ(sample.evaluate("LEFT(NAME,2)"), "Missing operator.\nMissing ')'.\n");
  sample.addColumn(u"ORDERS", XValue::ofBool(true));
  EXPECT_EQ(sample.evaluate(".F. OR .T."), "Missing operator.\n");
  EXPECT_EQ(sample.evaluate(".F. .OR. .T."), ".T.");
}

TEST_F(ParserTest, Arguments) {
  check(R"(
SUBSTR("abcdef",,3) => "abc" | SUBSTR("abcdef",2,) => "bcdef" | AT("a","banana",) => 2
AT( "a" , "banana" , 2 ) => 4 | COLVAL(3,) => 250 | COLVAL(3) => 250 | COLVAL(3,1) => 100
COLVAL(,1) => <empty> | IIF(,1,2) => 2 | IIF(.T.,,2) => Variable '' is not found. | LEFT(,2) => ""
MAX(1,,-3) => 1 | MAX(-5,,-3) => 0 | DECODE(1,,2) => "" | LEN( ) => Too few arguments for function LEN().
LEN("a", ) => Too many arguments for function LEN(). | GFSUM("AMOUNT") => 390 | GFSUM((AMOUNT)) => 0
GFSUM(nothing) => Variable 'nothing' is not found.)");
}

TEST_F(ParserTest, NestingAndErrorsAreLimited) {
  const auto nested = [](std::size_t depth) {
    return std::string(depth, '(') + "1" + std::string(depth, ')');
  };
  EXPECT_EQ(sample.evaluate(nested(900)), "1");
  const std::string refused = sample.evaluate(nested(100000));
  EXPECT_TRUE(refused.starts_with("Syntax error \"(((("));
  EXPECT_EQ(sample.engine.errors().size(), 1u);
  std::string calls;
  for (int i = 0; i < 5000; ++i) calls += "LEN(";
  EXPECT_TRUE(sample.evaluate(calls).starts_with("Syntax error \"LEN("));
  std::string sum = "0";
  for (int i = 0; i < 50000; ++i) sum += "+1";
  EXPECT_EQ(sample.evaluate(sum), "50000");
  std::string steps = "0";
  for (int i = 0; i < 900; ++i) steps += " - 1";
  EXPECT_EQ(sample.evaluate(steps), "-900");
  std::string faults = "1+\"a\"";
  for (int i = 0; i < 300; ++i) faults += "+X" + std::to_string(i);
  sample.evaluate(faults);
  EXPECT_EQ(sample.engine.errors().size(), 301u);
  sample.evaluate(std::string(10000, '?'));
  EXPECT_GT(sample.engine.errors().size(), 100u);
  EXPECT_LT(sample.engine.errors().size(), 1000u);
}

TEST(XExprParserException, HandsOutItsMessages) {
  const XExprParserException exception(
      {XExprError::of(ExprErrorCode::MissingOperand), XExprError::of(ExprErrorCode::MissingCharacter, ')')});
  XExprParserException selected = exception;
  std::array<char16_t, 64> buffer{};
  std::uint32_t help = 7;
  EXPECT_EQ(exception.errorCount(), 2u);
  EXPECT_TRUE(selected.GetErrorMessage(buffer.data(), buffer.size(), &help));
  EXPECT_EQ(std::u16string(buffer.data()), u"Missing operand.\n");
  EXPECT_EQ(help, 0u);
  selected.selectError(1);
  EXPECT_TRUE(selected.GetErrorMessage(buffer.data(), 8, nullptr));
  EXPECT_EQ(std::u16string(buffer.data()), u"Missing");
  selected.selectError(2);
  EXPECT_FALSE(selected.GetErrorMessage(buffer.data(), buffer.size(), nullptr));
}

}  // namespace
}  // namespace tessera::test
