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
    EXPECT_EQ(locale.weekdayName(LocaleOwner::System, 6).toUtf8(), "Saturday") << name;
    EXPECT_EQ(locale.monthName(LocaleOwner::User, 1).toUtf8(), "January") << name;
    EXPECT_EQ(locale.monthName(LocaleOwner::System, 12).toUtf8(), "December") << name;
    EXPECT_EQ(locale.dateOrder(), DateOrder::MonthDayYear) << name;
    EXPECT_EQ(locale.decimalPoint(), u'.') << name;
  }
}

TEST(NativeLocale, OrdersOfDates) {
  const std::pair<const char*, DateOrder> rows[] = {
      {"%m/%d/%y", DateOrder::MonthDayYear}, {"%d.%m.%Y", DateOrder::DayMonthYear},
      {"%Y-%m-%d", DateOrder::YearMonthDay}, {"%e. %B %Y", DateOrder::DayMonthYear},
      {"%D", DateOrder::MonthDayYear},       {"%F", DateOrder::YearMonthDay},
      {"", DateOrder::MonthDayYear}};
  for (const auto& [pattern, order] : rows) EXPECT_EQ(dateOrderOf(pattern), order) << pattern;
}

TEST(NativeLocale, DatesAreWrittenInNumbers) {
  const std::pair<const char*, const char*> rows[] = {
      {"%m/%d/%y", "%m/%d/%Y"},   {"%d.%m.%Y", "%d.%m.%Y"}, {"%Y. %m. %d.", "%Y. %m. %d."},
      {"%e-%m-%Y", "%d-%m-%Y"},   {"%d %b %Y", "%d/%m/%Y"}, {"%F", "%Y-%m-%d"},
      {"%Y\u5e74%m", "%Y-%m-%d"}, {"%D", "%m/%d/%Y"},       {"", "%m/%d/%Y"}};
  for (const auto& [pattern, numeric] : rows) EXPECT_EQ(numericDatePattern(pattern), numeric) << pattern;
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
  if (old) {
    ::setenv("TZ", kept.c_str(), 1);
  } else {
    ::unsetenv("TZ");
  }
  ::tzset();
  EXPECT_TRUE((west + 12) % 24 == east || (west + 13) % 24 == east) << west << ' ' << east;
}

}  // namespace
}  // namespace tessera
