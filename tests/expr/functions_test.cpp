// The functions beyond their examples: edges, wrong types, limits.

#include "expr/english_locale.h"
#include "expr/sample_test.h"

namespace tessera::test {
namespace {

class FunctionsTest : public SampleTest {
 protected:
  FunctionsTest() {
    sample.addColumn(u"WORD", XValue::ofText(u"12abc"));
    sample.addColumn(u"BORN", XValue::ofDate(45292.25));
    sample.addColumn(u"YES", XValue::ofBool(true));
    sample.addColumn(u"HOLE", XValue());
    sample.addColumn(u"OTHER", XValue::null());
    sample.addColumn(u"LATE", XValue::ofDate(3000000));
  }
};

TEST_F(FunctionsTest, PartsOfTexts) {
  check(R"(
TRIM("  a  ") => "a" | LEFT("abc",5) => "abc" | LEFT("abc",-1) => "" | LEFT("abc",1.9) => "a"
RIGHT("abc",0) => "" | RIGHT("abc",9) => "abc" | SUBSTR("abc",2,0) => "bc" | SUBSTR("abc",2,1) => "b"
SUBSTR("abc",9) => "" | SUBSTR("abc",-5,2) => "ab" | STUFF("abcdef",2,0,"X") => "aXbcdef"
STUFF("abcdef",4,99,"X") => "abcX" | STUFF("abc",9,1,"X") => "abcX" | STUFF("abc",0,0,"X") => "Xabc"
STUFF("abc",-5,-5,"X") => "Xabc" | LEN("😀") => 2 | LEN(AMOUNT) => 3 | ASC("") => 0 | ASC("가") => 44032
ASC(CHR(200)) => 65480 | ASC(CHR(321)) => 65 | UPPER("aä") => "Aä" | ISALPHA("") => .F.
ISALPHA("ä") => .F. | ISALPHA("Z") => .T. | ISDIGIT("9") => .T. | ISLOWER("") => .F. | ISLOWER("A") => .F.
ISUPPER("A") => .T.)");
  expect("ALLTRIM(\"\ta\\n\")", "\"a\\n\"");
  expect("ALLTRIM(\" \t \")", "\"\"");
  expect("LTRIM(\" \t a \")", "\"a \"");
  expect("RTRIM(\" a \t\")", "\" a\"");
}

TEST_F(FunctionsTest, RepeatedAndPaddedTexts) {
  check(R"(
REPLICATE("ab",1) => "ab" | REPLICATE("ab",0) => "" | REPLICATE("ab",-3) => "" | REPLICATE("",3) => "  "
REPLICATE("ab",2000000000) => ! Invalid arguments for function REPLICATE() | SPACE(-1) => ""
LEN(SPACE(1048576)) => 1048576 | SPACE(1048577) => ! Invalid arguments for function SPACE()
PADL("ab",5,"xy") => "yxyab" | PADL("ab",4,"xy") => "xyab" | PADL("abc",2) => "ab" | PADL("abc",-1) => ""
PADR("abcdef",3) => "abc" | PADC("a",2,"-") => "a-" | PADC("a",6,"xyz") => "xyzaxy"
PADC("a",3,"xyz") => "axy" | PADR("a",3,"") => ! Invalid arguments for function PADR()
PADC("a",3,"") => ! Invalid arguments for function PADC() | PADL(.T.,4) => " .T." | PADL(2.5,3) => "  2"
PADR(BORN,12) => "01/01/2024 0" | PADL({2024-05-07},12) => "  05/07/2024" | CTOD(PADR(BORN,19))=BORN => .T.
PADL(CTOD("13:30"),9) => " 13:30:00" | PADL(CTOD("2024-05-07 13:30"),19) => "05/07/2024 13:30:00"
PADR(HOLE,2) => "  " | PADL("a",2000000000) => ! Invalid arguments for function PADL())");
}

TEST_F(FunctionsTest, Searches) {
  check(R"(
AT("a","banana",2) => 4 | AT("x","banana") => 0 | AT("a","banana",4) => 0 | AT("a","banana",0) => 0
AT("","ab") => 1 | AT("","ab",3) => 3 | AT("","ab",4) => 0 | AT("","") => 1 | AT("A","banana") => 0
ATC("NA","banana",2) => 5 | OCCURS("an","banana") => 2 | OCCURS("","banana") => 0
OCCURS("banana","an") => 0 | CHRTRAN("banana","an","AN") => "bANANA" | CHRTRAN("banana","","x") => "banana"
CHRTRAN("banana","aa","xy") => "bxnxnx" | CHRTRAN("banana","nab","") => ""
CHRTRAN("ab",REPLICATE("x",50)+"a",SPACE(99)+"A") => "Ab" | STRTRAN("abcabc","a","Z") => "ZbcZbc"
STRTRAN("abcabc","b") => "acac" | STRTRAN("abc","x","y") => "abc" | STRTRAN("abcabc","a","Z",3) => "cZbc"
STRTRAN("abcabc","x","Z",3) => "abcabc" | STRTRAN("aaa","a","b",1,0) => "aaa"
STRTRAN("aaa","aaa","") => "" | STRTRAN("ab","","x") => "xxab" | STRTRAN("ab","","",1,2000000000) => "ab"
STRTRAN("ab","","x",1,2000000000) => ! Invalid arguments for function STRTRAN() | LIKE("a?c","ac") => .F.
LIKE("","") => .T. | LIKE("","a") => .F. | LIKE("A*","abc") => .F. | LIKE("*","") => .T.
LIKE("**a**","banana") => .T. | LIKE("*an?","banana") => .T. | LIKE("*an?","banan") => .F.
LIKE("?*?","a") => .F. | LIKE("a*b*c","aXbXbXc") => .T.
LIKE(REPLICATE("*a",200)+"b",REPLICATE("a",5000)) => .F.)");
}

TEST_F(FunctionsTest, Numbers) {
  check(R"(
ABS(2) => "2" | CEIL(-2.5) => "-2" | FLOOR(2.9) => "2" | ROUND(2.345,2) => "2.35" | ROUND(2.5,0) => "3"
ROUND(-2.5,0) => "-2" | ROUND(1234,-2) => "1200" | ROUND(WORD,1) => "12" | TRUNCATE(1.29,1) => "1.2"
TRUNCATE(129,-1) => "120" | INT(3000000000) => 2147483647 | INT(-3000000000) => -2147483648
MOD(7,0) => nan | SIGN(0) => 0 | SIGN(2.5) => 1 | SQRT(-1) => ! SQRT(): argument cannot be negative
SQRT(0) => 0 | LOG(0) => ! LOG(): Zero or negative used as argument.
LOG10(-1) => ! Cannot use 0 or negative as the argument for LOG10(); | EXP(1) => 2.71828182845905
ATAN(1)*4 => 3.14159265358979 | COS(PI()) => -1 | SIN(PI()/2) => 1)");
}

TEST_F(FunctionsTest, TheDecimalPointOfTheUser) {
  class Comma : public EnglishLocale {
    char16_t decimalPoint() const override { return u','; }
  };
  const Comma comma;
  sample.engine.setPlace(&comma, &sample.clock);
  expect("ROUND(2.345,2)+STR(2.5,4,1)", "\"2,35 2.5\"");
}

TEST_F(FunctionsTest, NumbersAndTexts) {
  check(R"(
STR(1234) => "      1234" | STR(1234.5,3,1) => "*" | STR(1234.5,4,1) => "1234" | STR(1234.5,5,1) => "1234"
STR(1234.56,6,2) => "1234.5" | STR(1234.5,6,1) => "1234.5" | STR(12345,4) => "1234" | STR(12345,3) => "*"
STR(-1.5,6,1) => "  -1.5" | STR(1,0) => "" | STR(1,-5) => "*" | STR(1,3,-2) => "  1"
STR(1,4,2000000000) => ! Invalid arguments for function STR()
STR(1,2000000000) => ! Invalid arguments for function STR() | VAL(" -12.5e2x") => -1250 | VAL("1e") => 1
VAL("abc") => 0 | VAL("1e999") => inf | VAL("1e-999") => 0 | VAL("0x10") => 0 | VAL("inf") => 0
TOSTRING(100) => "100" | TOSTRING(0.1234567) => "0.123457" | TOSTRING(-0.5) => "-0.5"
TOSTRING(NAME) => "Kim" | TOSTRING(YES) => ! Invalid arguments for function TOSTRING()
TOSTRING("a") => Function TOSTRING() argument 1 type mismatch. | TOSTRING(TOINT("7")) => "7"
TOINT(AMOUNT) => 250 | TOINT("abc") => 0 | TOINT(BORN) => ! Invalid arguments for function TOINT()
TOINT(1) => Function TOINT() argument 1 type mismatch. | TOINT("42")+1 => 43 | TONUMBER(WORD) => 12
TONUMBER(HOLE) => ! Invalid arguments for function TONUMBER())");
}

TEST_F(FunctionsTest, DatesAndTimes) {
  check(R"(
DATE() => {2024-03-09 14:30:05} | DATE(2001,2,29) => {2001-03-01}
DATETIME(2024,1,0,6) => {2023-12-31 06:00:00} | DATE(2024,1,32) => ! no date
DATE(2024) => ! no date
DATE(99,1,1) => ! no date | DATETIME() => {2024-03-09 14:30:05}
DATETIME(2024,2,29,23,59,59) => {2024-02-29 23:59:59}
DATETIME(2024,2,29,24) => ! no date
DATETIME(,,,0,0,1) => {2024-03-09 00:00:01} | CTOD("5/17/2024") => {2024-05-17}
CTOD("17.5.2024") => ! no date | CTOD("5/17/24") => {2024-05-17}
CTOD("5/17/30") => {1930-05-17} | CTOD("2024.5.17") => {2024-05-17}
CTOD("5 17 2024 12:05 am") => {2024-05-17 00:05:00} | CTOD("2024-05-17T08:00:00") => {2024-05-17 08:00:00}
CTOD("") => ! no date
CTOD("5/17/2024 13:05 pm") => ! no date
CTOD("5/17/2024 x") => ! no date
CTOD("123456789/1/1") => ! no date
CTOT("nonsense") => ! no date
YEAR(LATE) => ! no date
DTOC(LATE) => ! no date
TIME(LATE) => ! no date | TIME(BORN) => "06:00:00"
TIME({2024-01-01}) => Function TIME() argument 1 type mismatch. | TIME(0.5) => "12:00:00" | HOUR(BORN) => 6
DAY(45292) => Function DAY() argument 1 type mismatch. | DTOC({2007-03-09}) => "2007-03-09"
DTOC({2007-03-09},2) => "2007-03-09" | DMY({2007-03-09}) => "09 March 07" | CDOW(HOLE) => "Saturday"
CDOW({1899-12-29}) => "Friday")");
}

TEST_F(FunctionsTest, Choices) {
  check(R"(
IIF(YES,1,2) => 1 | IIF(AMOUNT,1,2) => 2 | IIF(1,1,2) => Function IIF() argument 1 type mismatch.
BETWEEN(6,5,10) => .T. | BETWEEN(10,5,10) => .F. | BETWEEN("b","a","c") => .T.
BETWEEN({2007-01-02},{2007-01-01},{2007-01-03}) => .T. | BETWEEN(.T.,.T.,.F.) => .F.
BETWEEN(HOLE,-1,1) => .F. | EMPTY(0) => .T. | EMPTY("") => .T. | EMPTY(.F.) => .T. | EMPTY(.T.) => .F.
EMPTY(LATE) => .T. | EMPTY(BORN) => .F. | EMPTY(HOLE) => .F. | VARTYPE(1) => "N" | VARTYPE("") => "C"
VARTYPE(BORN) => "D" | VARTYPE(.T.,.T.) => "L" | VARTYPE(OTHER) => "X" | VARTYPE(HOLE) => "U"
VARTYPE(STATUS) => "C" | DECODE(2,1,"a",2,"b","c") => "b" | DECODE(3,1,"a",2,"b","c") => "c"
DECODE(3,1,"a") => "" | DECODE("a ","a","x","y") => "y" | DECODE("c",1,"a","c") => ""
DECODE(1,"1","text",1,"number") => "number" | DECODE({2007-01-01},{2007-01-01},1,2) => 2
DECODE(HOLE,HOLE,1,2) => 1 | DECODE(1,1) => Too few arguments for function DECODE().
DECODE(CURREC,1,"one",2,"two") => "two")");
}

TEST_F(FunctionsTest, Extremes) {
  check(R"(
MAX("a","c","b") => "c" | MIN(3,1,2) => 1 | MAX({2007-01-01},{2008-01-01}) => {2008-01-01}
MAX(.T.,.F.) => .F. | MIN(.T.,.F.) => .T. | MAX(1,"7x") => 7 | MAX("1",7) => "7" | MAX(TOINT("3"),2) => 3
MIN(TOINT("3"),2) => ! Function MIN() argument 1 type mismatch.
LEAST(HOLE,1) => ! Function MIN() argument 1 type mismatch.
GREATEST(HOLE,1) => ! Function MAX() argument 1 type mismatch.
MAX(1) => Too few arguments for function MAX().)");
}

TEST_F(FunctionsTest, Grid) {
  check(R"(
CURREC => 2 | FIRSTREC => 1 | LASTREC => 3 | NEXTREC => 3 | PREVREC => 1 | RECCOUNT => 3 | STATUS => "U"
COLVAL(1,NEXTREC) => "Lee" | COLVAL(AMOUNT,1) => <empty> | KEYWORD(8) => "U" | KEYWORD(10) => 0
KEYWORD(-1) => 0 | GFSUBSUM(AMOUNT,2) => 350 | gfsubsum(amount) => 350 | GFSUM(NAME) => 0
GFSUBCOUNT() => 2)");
  sample.state.ExprRow = 3;
  check("GFSUBSUM(AMOUNT) => 40 | AMOUNT => 40");
}

}  // namespace
}  // namespace tessera::test
