// How texts group, and what is wrong with those that are no expressions.

#include <gtest/gtest.h>

#include "expr/expr_errors.h"
#include "expr/sample_rows.h"

namespace tessera::test {
namespace {

struct Row {
  const char* text;
  const char* result;
};

class ParserTest : public testing::Test {
 protected:
  template <std::size_t size>
  void check(const Row (&rows)[size]) {
    for (const Row& row : rows) EXPECT_EQ(sample.evaluate(row.text), row.result) << row.text;
  }
  SampleEngine sample;
};

constexpr char operands[] = "Operator/operand type mismatch.\n";

TEST_F(ParserTest, OperatorsGroupByPriority) {
  const Row rows[] = {
      {"2+3*4", "14"},
      {"2*3+4", "10"},
      {"10-3-2", "5"},
      {"10-3+2", "9"},
      {"2**3**2", "64"},
      {"2*3**2", "18"},
      {"2**3*2", "16"},
      {"2+3*4>5", operands},  // 2+((3*4)>5)
      {"1+2>5", ".F."},
      {"7>2+3", ".T."},
      {"10-2*3", "4"},
      {"2*-3", "-6"},
      {"2*-AMOUNT", "-500"},
      {"5>3-1", ".T."},
      {"8/4/2", "1"},
      {"8/4*2", "4"},
      {"7%4+1", "4"},
      {"1=1=.T.", ".T."},
      {"3>2=.T.", ".T."},
      {"3>2>=1", operands},  // 3>(2>=1)
      {"3>=2>.F.", ".F."},
      {".T. AND .F. OR .T.", ".T."},  // .T. AND (.F. OR .T.)
      {".F. AND .F. OR .T.", ".F."},
      {".T. OR .F. AND .F.", ".F."},  // (.T. OR .F.) AND .F.
      {"(2+3)*4", "20"},
      {"((2+3)*(4))", "20"},
      {"NOT .F. = .T.", ".T."},
      {"NOT 1=1", "Operator/operand type mismatch.\nOperator/operand type mismatch.\n"},  // (NOT 1)=1
      {".T. AND NOT .F.", operands},
      {".T. AND (NOT .F.)", ".T."},
      {"1 = AMOUNT AND .T.", operands},
      {"(1=1) AND (2=2)", ".T."},
      {"(1=1)AND(2=2)", "Missing operator.\nFunction AND() is not implemented.\n"},
  };
  check(rows);
}

TEST_F(ParserTest, SignsBindTightest) {
  const Row rows[] = {
      {"-5", "-5"},
      {"- 5", "-5"},
      {"+5", "5"},
      {"5-3", "2"},
      {"5 - 3", "2"},
      {"5 -3", "2"},
      {"5--3", "8"},
      {"5+-3", "2"},
      {"5-AMOUNT", "-245"},
      {"-AMOUNT", "-250"},
      {"--AMOUNT", "-250"},
      {"-AMOUNT+1", "-249"},
      {"-2**2", "! ** or ^ domain error."},
      {"2**-1", "0.5"},
      {"-.5", "-0.5"},
      {"+AMOUNT*2", "500"},
      {"-(2+3)", "-5"},
      {"2-(1-1)", "2"},
  };
  check(rows);
}

TEST_F(ParserTest, Literals) {
  const Row rows[] = {
      {"12", "12"},
      {"1.5", "1.5"},
      {".5", "0.5"},
      {"5.", "5"},
      {"1.2.3", "1.2"},
      {"..", "0"},
      {"1e3", "Missing operator.\nVariable 'e3' is not found.\n"},
      {"\"a\"", "\"a\""},
      {"'a\"b'", "\"a\\\"b\""},
      {"[a]", "\"a\""},
      {"\"\"", "\"\""},
      {R"("a\"b")", R"("a\"b")"},
      {R"("a\qb")", R"("a\\qb")"},
      {R"("\b\n\r\t\'\[\]\\")", R"("\b\n\r\t'[]\\")"},
      {R"([a\]b])", "\"a]b\""},
      {"{2007-03-09}", "{2007-03-09}"},
      {"{03/09/2007}", "{2007-03-09}"},
      {"{3/9/07 1:30:05 pm}", "{2007-03-09 13:30:05}"},
      {"{2007/3/9}", "{2007-03-09}"},
      {"{13:30}", "{1899-12-30 13:30:00}"},
      {"{}", "<empty>"},
      {"{2007-02-30}", "<empty>"},
      {"{never}", "<empty>"},
      {".T.", ".T."},
      {".t.", ".T."},
      {".Y.", ".T."},
      {".f.", ".F."},
      {".n.", ".F."},
      {".X.", "Syntax error \"X\".\nMissing expression.\n"},
      {".TRUE.", "Syntax error \"TRUE\".\nMissing expression.\n"},
  };
  check(rows);
}

TEST_F(ParserTest, TheFirstLineCounts) {
  const Row rows[] = {
      {" \t 1 ", "1"},
      {"1\n+2", "1"},
      {"1\r+2", "1"},
      {"1;\n+2", "3"},
      {"1 ;  \r\n + 2", "3"},
      {"1;;+2", "3"},
      {"(1;\n)", "1"},
      {"1+;\n-2", "-1"},
      {"5;\n-2", "3"},
      {"\"a\nb\"", "Missing '\"'.\n"},
      {"1+\n2", "Missing operand.\n"},
  };
  check(rows);
  EXPECT_EQ(sample.evaluateWide(std::u16string_view(u"1\0+2", 4)), "1");
}

TEST_F(ParserTest, OperatorWords) {
  const Row rows[] = {
      {".T. .and. .F.", ".F."},
      {".T..OR..F.", ".T."},
      {".NOT..T.", ".F."},
      {"not .T.", ".F."},
      {"!.T.", ".F."},
      {"! .F.", ".T."},
      // The character behind a bare word is passed over.
      {".T. AND,.T.", ".T."},
      {".F. OR.T.", "Missing '.'.\nSyntax error \"\".\nVariable 'T' is not found.\n"},
      {".T. AND", "Missing operand.\nOperator/operand type mismatch.\n"},
  };
  check(rows);
}

TEST_F(ParserTest, ErrorLists) {
  const Row rows[] = {
      {"", "Missing expression.\n"},
      {"   ", "Missing expression.\n"},
      {"()", "Missing expression.\n"},
      {"1+", "Missing operand.\n"},
      {"*2", "Missing operand.\n"},
      {"1+*2", "Missing operand.\nMissing operand.\n"},
      {"1 2", "Missing operator.\n"},
      {"1 \"a\"", "Missing operator.\n"},
      {"1 (2)", "Missing operator.\n"},
      {"1 LEN(\"a\")", "Missing operator.\n"},
      {"(1", "Missing ')'.\n"},
      {"((1)", "Missing ')'.\n"},
      {"1)", "Missing '('.\n"},
      {")", "Missing '('.\nMissing expression.\n"},
      {"NAME,REGION", "Syntax error \",REGION\".\n"},
      {"1,", "Syntax error \",\".\n"},
      {",1", "Syntax error \",1\".\nMissing expression.\n"},
      {"(1,2)", "Missing ')'.\n"},
      {"\"abc", "Missing '\"'.\n"},
      {"'abc", "Missing '''.\n"},
      {"[abc", "Missing ']'.\n"},
      {"{2007-01-01", "Missing '}'.\n"},
      {".T", "Missing '.'.\n"},
      {"1 ? 2", "Syntax error \"? 2\".\nSyntax error \"? 2\".\nSyntax error \"? 2\".\nMissing operator.\n"},
      {"foo", "Variable 'foo' is not found.\n"},
      {"foo + bar", "Variable 'foo' is not found.\nVariable 'bar' is not found.\n"},
      {"NOSUCH(1)", "Function NOSUCH() is not implemented.\n"},
      {"NOSUCH(foo)", "Function NOSUCH() is not implemented.\nVariable 'foo' is not found.\n"},
      {"LEN(", "Function LEN() is missing ')'.\nToo few arguments for function LEN().\n"},
      {"LEN(\"a\"", "Function LEN() is missing ')'.\n"},
      {"LEN()", "Too few arguments for function LEN().\n"},
      {"LEN(\"a\",1)", "Too many arguments for function LEN().\n"},
      {"PI(1)", "Too many arguments for function PI().\n"},
      {"PI(,)", "Too many arguments for function PI().\n"},
      {"LEN(1)", "Function LEN() argument 1 type mismatch.\n"},
      {"LEFT(\"a\",\"b\")", "Function LEFT() argument 2 type mismatch.\n"},
      {"LEFT(1,\"b\")",
       "Function LEFT() argument 1 type mismatch.\nFunction LEFT() argument 2 type mismatch.\n"},
      {"DAY({})", "Function DAY() argument 1 type mismatch.\n"},
      {"1+\"a\"", operands},
      {"1+\"a\"+2", operands},
      {"ROUND(1.5,0)*2", operands},
      {"1 2 +", "Missing operator.\nMissing operand.\n"},
      {"STATUS = \"I\"", operands},
  };
  check(rows);
}

TEST_F(ParserTest, NamesAreMatchedByTheirBeginning) {
  const Row rows[] = {
      {"AMOUNT", "250"},
      {"amount", "250"},
      {"NAME", "\"Kim\""},
      {"CURREC", "2"},
      {"currec", "2"},
      {"CURR", "0"},  // a part of a keyword has no value
      {"F(1)", "Missing operator.\n"},
      {"NAME(1)", "Missing operator.\n"},
      {"NAME REGION", "\"North\""},
      {"1+NAME AMOUNT", "251"},
      {"1+NAME AMOUNT+2", "253"},
      {"ALLT(\" a \")", "\"a\""},
      {"alltrim(\" a \")", "\"a\""},
      {"ALLTRIMS(\" a \")", "Function ALLTRIMS() is not implemented.\n"},
      {"AB(1)", "Function AB() is not implemented.\n"},
      {"LENG(\"a\")", "Function LENG() is not implemented.\n"},
      {"VARTYPE(DATET(2024,1,1,5))", "\"D\""},
      {"HOUR(DATET(2024,1,1,5))", "5"},
      {"LOG1(1000)", "3"},
      {"LOG(1)", "0"},
      {"GFSU(AMOUNT)", "175"},
      {"GFSUM(AMOUNT)", "390"},
      {"SECO()", "52205"},
      {"COLU(1)", "Function COLU() is not implemented.\n"},
      {"KEYW(1)", "2"},
      {"T(1)", "Function T() is not implemented.\n"},
  };
  check(rows);
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
  const Row rows[] = {
      {"SUBSTR(\"abcdef\",,3)", "\"abc\""},
      {"SUBSTR(\"abcdef\",2,)", "\"bcdef\""},
      {"AT(\"a\",\"banana\",)", "2"},
      {"AT( \"a\" , \"banana\" , 2 )", "4"},
      {"COLVAL(3,)", "250"},
      {"COLVAL(3)", "250"},
      {"COLVAL(3,1)", "100"},
      {"COLVAL(,1)", "<empty>"},
      {"IIF(,1,2)", "2"},
      {"IIF(.T.,,2)", "Variable '' is not found.\n"},
      {"LEFT(,2)", "\"\""},
      {"MAX(1,,-3)", "1"},
      {"MAX(-5,,-3)", "0"},
      {"DECODE(1,,2)", "\"\""},
      {"LEN( )", "Too few arguments for function LEN().\n"},
      {"LEN(\"a\", )", "Too many arguments for function LEN().\n"},
      {"GFSUM(\"AMOUNT\")", "390"},
      {"GFSUM((AMOUNT))", "0"},
      {"GFSUM(nothing)", "Variable 'nothing' is not found.\n"},
  };
  check(rows);
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
