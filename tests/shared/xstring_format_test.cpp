#include <gtest/gtest.h>
#include <limits>

#include <tessera/xstring.h>

namespace tessera {
namespace {

template <class... Args>
std::string formatted(const char* pattern, const Args&... arguments) {
  XString text;
  text.format(pattern, arguments...);
  return text.toUtf8();
}

TEST(XStringFormat, AgreesWithThePlatformsPrintf) {
  const auto check = [](const char* pattern, auto... arguments) {
    char expected[256];
    std::snprintf(expected, sizeof expected, pattern, arguments...);
    EXPECT_EQ(formatted(pattern, arguments...), expected) << pattern;
  };
  check("%d and 100%%", -12);
  check("[%5d|%-5d|%05d|%+d|% d]", 42, 42, 42, 42, 42);
  check("%u", std::numeric_limits<unsigned>::max());
  check("%x %X %#x %o", 255, 255, 255, 8);
  check("%x", -1);
  check("%lld", std::numeric_limits<long long>::min());
  check("%llu", std::numeric_limits<unsigned long long>::max());
  check("%ld", -5L);
  check("%.*lf", 2, 3.14159);
  check("%*.*f|", 10, 3, -2.5);
  check("%*d|", -6, 7);
  check("%.*f", -1, 0.5);
  check("%f %.0f %.0f %.0f", 1.0 / 3, 0.5, 1.5, 2.5);
  check("%e %G", 12345.678, 1e-10);
  check("%.2f", 1e22);
  check("%c%c", 'o', 'k');
  check("%s and %10s|%-10s|%.2s", "one", "two", "three", "four");
}

TEST(XStringFormat, TakesWideTexts) {
  EXPECT_EQ(formatted("plain"), "plain");
  EXPECT_EQ(formatted("%s=%s", XString(u"\uAC00"), u"\u00E4"), "\xEA\xB0\x80=\xC3\xA4");
  EXPECT_EQ(formatted("%4s|%-3s|%.1s", u"\uAC00\uB098", u"x", u"yz"), "  \xEA\xB0\x80\xEB\x82\x98|x  |y");
  EXPECT_EQ(formatted("\xC3\xA4 %d", 1), "\xC3\xA4 1");
}

// Patterns come from configuration: whatever stands there must do no harm.
TEST(XStringFormat, SurvivesPatternsThatDoNotFit) {
  EXPECT_EQ(formatted("%d %d|", 1), "1 |");
  EXPECT_EQ(formatted("%d", 2.9), "2");
  EXPECT_EQ(formatted("%d", std::numeric_limits<double>::quiet_NaN()), "0");
  EXPECT_EQ(formatted("%c%c", 65.9, -0.5).substr(0, 1), "A");
  for (const double number : {1e300, -1e300, 65536.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(formatted("%c", number), "\xEF\xBF\xBD") << number;
  }
  EXPECT_EQ(formatted("%*s|", std::numeric_limits<double>::quiet_NaN(), "x"), "x|");
  EXPECT_EQ(formatted("%*s", std::numeric_limits<int>::min(), "x").size(), 4095u);
  EXPECT_EQ(formatted("%*s", -1e300, "x").size(), 4095u);
  EXPECT_EQ(formatted("%.1f", 3), "3.0");
  EXPECT_EQ(formatted("%s", 12), "12");
  EXPECT_EQ(formatted("%d", u"text"), "text");
  EXPECT_EQ(formatted("a%"), "a");
  EXPECT_EQ(formatted("%y%d", 5), "5");
  EXPECT_EQ(formatted("%n", 5), "");
  EXPECT_EQ(formatted("%999999999d", 1).size(), 4095u);
  EXPECT_EQ(formatted("%.*f", std::numeric_limits<int>::max(), 0.0).size(), 4097u);
}

TEST(XStringFormat, MayTakeItsOwnText) {
  XString text(u"abc");
  text.format("<%s>", text);
  EXPECT_EQ(text, u"<abc>");
}

}  // namespace
}  // namespace tessera
