#include "shared/number_text.h"

#include <cmath>
#include <cstdlib>
#include <random>

#include <tessera/xstring.h>

#include "shared/utf.h"
#include "tests/support/text_rows.h"

namespace tessera {
namespace {

TEST(NumberText, Reals) {
  for (const auto& [value, text] : test::textRows(R"(
0 => 0 | -0.0 => 0 | -1.5 => -1.5 | 100 => 100 | 0.30000000000000004 => 0.3
0.3333333333333333 => 0.333333333333333 | -0.6666666666666666 => -0.666666666666667 | 0.00001 => 0.00001
0.0000123 => 0.0000123 | 0.000009 => 9E-06 | 1e14 => 100000000000000 | -1e15 => -1000000000000000
999999999999999 => 999999999999999 | 123456789012345.6 => 123456789012346
999999999999999.9 => 1000000000000000 | 1.1e15 => 1.1E+15 | 1e16 => 1E+16 | -2.5e-300 => -2.5E-300
1.7976931348623157e308 => 1.79769313486232E+308 | 5e-324 => 5E-324 | 9.9999999999999999e-6 => 0.00001
inf => inf | -inf => -inf | nan => nan)")) {
    EXPECT_EQ(NumberText::ofReal(std::strtod(value.c_str(), nullptr), 15).view(), text);
  }
  EXPECT_EQ(NumberText::ofReal(static_cast<double>(0.1f), 7).view(), "0.1");
  EXPECT_EQ(NumberText::ofReal(static_cast<double>(16777216.0f), 7).view(), "16777220");
  EXPECT_EQ(NumberText::ofReal(-1.2345678901234567e-5, 17).view(), "-0.000012345678901234568");
  EXPECT_EQ(NumberText::ofReal(-1.2345678901234567e-100, 17).view(), "-1.2345678901234567E-100");
}

// Two ways to the same digits: the shortest form that is short enough, and rounding.
TEST(NumberText, RoundsAsThePlatformDoes) {
  std::mt19937_64 random(20240501);
  for (int i = 0; i < 200000; ++i) {
    const double value =
        std::ldexp(static_cast<double>(random() >> 11), static_cast<int>(random() % 80) - 60);
    const double shortened = i % 2 == 0 ? value : std::round(value * 100) / 100;
    char expected[64];
    std::snprintf(expected, sizeof expected, "%.14e", shortened);
    const double read = std::strtod(expected, nullptr);
    const std::string text(NumberText::ofReal(shortened, 15).view());
    ASSERT_EQ(std::strtod(text.c_str(), nullptr), read) << text;
  }
}

TEST(NumberText, Parse) {
  for (const auto& [text, expected] : test::textRows(R"(
0 => whole 0 |  -12 	 => whole -12 | +12 => whole 12 | 9223372036854775807 => whole 9223372036854775807
9223372036854775808 => large 9223372036854775808 | -9223372036854775808 => whole -9223372036854775808
-9223372036854775809 => real -9.22337203685478E+18 | 18446744073709551616 => real 1.84467440737096E+19
1.5 => real 1.5 | -.5 => real -0.5 | 5. => real 5 | 1e3 => real 1000 | 1E-3 => real 0.001 | 1e-400 => real 0
1e400 => overflow)")) {
    Number number;
    const HResult status = parseNumber(XString::fromNarrow(text), number);
    const bool real = number.kind == Number::Kind::Real, large = number.kind == Number::Kind::Unsigned;
    std::string found = real ? "real " : large ? "large " : "whole ";
    if (real) found += NumberText::ofReal(number.asReal(), 15).view();
    if (!real)
      found += large ? std::to_string(std::uint64_t(number.integer)) : std::to_string(number.integer);
    EXPECT_EQ(status == DISP_E_OVERFLOW ? "overflow" : status != S_OK ? "bad" : found, expected) << text;
  }
  for (const char16_t* bad : {u"", u"  ", u"-", u"+-1", u"--1", u".", u"1,5", u"1 2", u"12a", u"0x10", u"inf",
                              u"-nan", u"\uFF11", u"1\u0131"}) {
    Number number;
    EXPECT_EQ(parseNumber(bad, number), DISP_E_TYPEMISMATCH) << utf8FromUtf16(bad);
  }
}

}  // namespace
}  // namespace tessera
