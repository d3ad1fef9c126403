#include "backends/native/native_locale.h"

#include <cstdlib>
#include <gtest/gtest.h>

#include "backends/native/native_clock.h"
#include "shared/calendar.h"

namespace tessera {
namespace {

TEST(NativeLocale, EnglishWhereThereIsNoOtherLanguage) {
  for (const char* name : {"C", "POSIX", "xx_YY.nonsense", ""}) {
    const NativeLocale locale(name, name, name);
    EXPECT_EQ(locale.weekdayName(LocaleOwner::User, 0).toUtf8(), "Sunday") << name;
    EXPECT_EQ(locale.monthName(LocaleOwner::System, 12).toUtf8(), "December") << name;
    EXPECT_EQ(locale.dateOrder(), DateOrder::MonthDayYear) << name;
    EXPECT_EQ(locale.decimalPoint(), u'.') << name;
  }
}

TEST(NativeLocale, DatesAreWrittenInNumbersAndReadInTheirOrder) {
  struct Row {
    const char *pattern, *numeric;
    DateOrder order;
  };
  const Row rows[] = {{"%m/%d/%y", "%m/%d/%Y", DateOrder::MonthDayYear},
                      {"%Y. %m. %d.", "%Y. %m. %d.", DateOrder::YearMonthDay},
                      {"%e-%m-%Y", "%d-%m-%Y", DateOrder::DayMonthYear},
                      {"%d %b %Y", "%d/%m/%Y", DateOrder::DayMonthYear},
                      {"%F", "%Y-%m-%d", DateOrder::YearMonthDay},
                      {"%Y\u5e74%m", "%Y-%m-%d", DateOrder::YearMonthDay},
                      {"%D", "%m/%d/%Y", DateOrder::MonthDayYear},
                      {"", "%m/%d/%Y", DateOrder::MonthDayYear}};
  for (const Row& row : rows) {
    EXPECT_EQ(numericDatePattern(row.pattern), row.numeric) << row.pattern;
    EXPECT_EQ(dateOrderOf(row.pattern), row.order) << row.pattern;
  }
}

// Two zones half a day apart never have the same hour.
TEST(NativeClock, ShowsTheTimeOfItsZone) {
  const auto hourIn = [](const char* zone) {
    ::setenv("TZ", zone, 1);
    ::tzset();
    return calendarTime(NativeClock().now())->hour;
  };
  const char* old = std::getenv("TZ");
  const std::string kept = old ? old : "";
  const std::int32_t west = hourIn("WEST6");
  const std::int32_t east = hourIn("EAST-6");
  old ? ::setenv("TZ", kept.c_str(), 1) : ::unsetenv("TZ");
  ::tzset();
  EXPECT_TRUE((west + 12) % 24 == east || (west + 13) % 24 == east) << west << ' ' << east;
}

}  // namespace
}  // namespace tessera
