#include "shared/number_text.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "shared/utf.h"

namespace tessera {
namespace {

TEST(NumberText, Reals) {
  struct Row {
    double value;
    const char* text;
  };
  constexpr double infinite = std::numeric_limits<double>::infinity();
  const Row rows[] = {
      {0, "0"},
      {-0.0, "0"},
      {1, "1"},
      {-1.5, "-1.5"},
      {100, "100"},
      {0.1 + 0.2, "0.3"},
      {1.0 / 3, "0.333333333333333"},
      {2.0 / 3, "0.666666666666667"},
      {-2.0 / 3, "-0.666666666666667"},
      {0.00001, "0.00001"},
      {0.0000123, "0.0000123"},
      {0.000009, "9E-06"},
      {1e14, "100000000000000"},
      {1e15, "1000000000000000"},
      {-1e15, "-1000000000000000"},
      {999999999999999, "999999999999999"},
      {123456789012345.6, "123456789012346"},
      {999999999999999.9, "1000000000000000"},
      {1.1e15, "1.1E+15"},
      {1e16, "1E+16"},
      {1.5e20, "1.5E+20"},
      {-2.5e-300, "-2.5E-300"},
      {1.7976931348623157e308, "1.79769313486232E+308"},
      {5e-324, "5E-324"},
      {9.9999999999999999e-6, "0.00001"},
      {infinite, "inf"},
      {-infinite, "-inf"},
      {std::nan(""), "nan"},
  };
  for (const Row& row : rows) EXPECT_EQ(NumberText::ofReal(row.value, 15).view(), row.text);
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
  struct Row {
    const char16_t* text;
    HResult status;
    Number::Kind kind;
    double value;
  };
  constexpr auto whole = Number::Kind::Signed;
  constexpr auto large = Number::Kind::Unsigned;
  constexpr auto real = Number::Kind::Real;
  constexpr HResult bad = DISP_E_TYPEMISMATCH;
  constexpr HResult overflow = DISP_E_OVERFLOW;
  const Row rows[] = {
      {u"0", S_OK, whole, 0},
      {u" -12 \t", S_OK, whole, -12},
      {u"+12", S_OK, whole, 12},
      {u"9223372036854775807", S_OK, whole, 9223372036854775807.0},
      {u"9223372036854775808", S_OK, large, 9223372036854775808.0},
      {u"-9223372036854775808", S_OK, whole, -9223372036854775808.0},
      {u"-9223372036854775809", S_OK, real, -9223372036854775808.0},
      {u"18446744073709551616", S_OK, real, 18446744073709551616.0},
      {u"1.5", S_OK, real, 1.5},
      {u"-.5", S_OK, real, -0.5},
      {u"5.", S_OK, real, 5},
      {u"1e3", S_OK, real, 1000},
      {u"1E-3", S_OK, real, 0.001},
      {u"1e-400", S_OK, real, 0},
      {u"1e400", overflow, real, 0},
      {u"", bad, real, 0},
      {u"  ", bad, real, 0},
      {u"-", bad, real, 0},
      {u"+-1", bad, real, 0},
      {u"--1", bad, real, 0},
      {u".", bad, real, 0},
      {u"1,5", bad, real, 0},
      {u"1 2", bad, real, 0},
      {u"12a", bad, real, 0},
      {u"0x10", bad, real, 0},
      {u"inf", bad, real, 0},
      {u"-nan", bad, real, 0},
      {u"\uFF11", bad, real, 0},
      {u"1\u0131", bad, real, 0},
  };
  for (const Row& row : rows) {
    Number number;
    const std::string name = utf8FromUtf16(row.text);
    ASSERT_EQ(parseNumber(row.text, number), row.status) << name;
    if (row.status != S_OK) continue;
    EXPECT_EQ(number.kind, row.kind) << name;
    EXPECT_EQ(number.asReal(), row.value) << name;
  }
}

}  // namespace
}  // namespace tessera
