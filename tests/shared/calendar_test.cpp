#include "shared/calendar.h"

#include <cmath>
#include <limits>

#include "tests/support/text_rows.h"

namespace tessera {
namespace {

TEST(Calendar, NumbersAndTexts) {
  for (const auto& [number, text] : test::textRows(R"(
0 => 1899-12-30 | 2 => 1900-01-01 | 60 => 1900-02-28 | 61 => 1900-03-01 | 25569 => 1970-01-01
36585 => 2000-02-29 | 45413.5625 => 2024-05-01 13:30:00 | 0.75 => 1899-12-30 18:00:00 | -1 => 1899-12-29
-1.25 => 1899-12-29 06:00:00 | -1.75 => 1899-12-29 18:00:00 | -657434 => 0100-01-01
-657434.5 => 0100-01-01 12:00:00 | 2958465 => 9999-12-31)")) {
    EXPECT_EQ(isoDateText(std::stod(number)).toUtf8(), text);
    EXPECT_EQ(parseIsoDate(XString::fromNarrow(text)), std::stod(number)) << text;
  }
  EXPECT_EQ(isoDateText(0.5, u'T'), u"1899-12-30T12:00:00");
}

TEST(Calendar, EverySecondOfADayAndEveryDayComesBack) {
  for (const double day : {45413.0, -45413.0}) {
    for (std::int32_t second = 0; second < 86400; ++second) {
      const double number = day < 0 ? day - second / 86400.0 : day + second / 86400.0;
      const auto time = calendarTime(number);
      ASSERT_TRUE(time);
      ASSERT_EQ(time->hour * 3600 + time->minute * 60 + time->second, second);
      ASSERT_EQ(dateNumber(*time), number);
    }
  }
  CalendarTime before = *calendarTime(-657435 + 1);
  for (std::int32_t day = -657434 + 1; day <= 2958465; ++day) {
    const auto time = calendarTime(day);
    ASSERT_TRUE(time);
    ASSERT_EQ(dateNumber(*time), day);
    const bool nextDay =
        time->day == before.day + 1 && time->month == before.month && time->year == before.year;
    const bool nextMonth = time->day == 1 && time->month == before.month % 12 + 1;
    ASSERT_TRUE(nextDay || nextMonth) << day;
    before = *time;
  }
}

TEST(Calendar, RoundsToTheNearestSecond) {
  constexpr double second = 1 / 86400.0;
  EXPECT_EQ(calendarTime(10 + 0.4 * second), (CalendarTime{1900, 1, 9, 0, 0, 0}));
  EXPECT_EQ(calendarTime(10 + 0.6 * second), (CalendarTime{1900, 1, 9, 0, 0, 1}));
  EXPECT_EQ(calendarTime(11 - 0.4 * second), (CalendarTime{1900, 1, 10, 0, 0, 0}));
  EXPECT_EQ(calendarTime(-2 - (1 - 0.4 * second)), (CalendarTime{1899, 12, 29, 0, 0, 0}));
  EXPECT_EQ(calendarTime(2958466 - 0.4 * second), std::nullopt);
}

TEST(Calendar, NothingOutsideTheCalendar) {
  constexpr double infinite = std::numeric_limits<double>::infinity();
  for (const double number : {-657435.0, 2958466.0, 1e300, infinite, -infinite, std::nan("")}) {
    EXPECT_EQ(calendarTime(number), std::nullopt) << number;
    EXPECT_TRUE(isoDateText(number).empty()) << number;
  }
  const CalendarTime times[] = {
      {99, 12, 31},     {10000, 1, 1},       {2023, 2, 29},         {1900, 2, 29},  {2024, 0, 1},
      {2024, 13, 1},    {2024, 4, 31},       {2024, 1, 0},          {2024, 1, 257}, {2024, 1, 1, 24},
      {2024, 1, 1, -1}, {2024, 1, 1, 0, 60}, {2024, 1, 1, 0, 0, 60}};
  for (const CalendarTime& time : times) EXPECT_EQ(dateNumber(time), std::nullopt) << &time - times;
}

TEST(Calendar, IsoTexts) {
  EXPECT_EQ(parseIsoDate(u"2024-05-01T13:30:00"), 45413.5625);
  EXPECT_EQ(parseIsoDate(u"2024-05-01 13:30"), 45413.5625);
  EXPECT_NEAR(*parseIsoDate(u"2024-05-01T00:00:00.5"), 45413 + 0.5 / 86400, 1e-11);
  EXPECT_NEAR(*parseIsoDate(u"1899-12-29 06:00:00.25"), -1.25 - 0.25 / 86400, 1e-11);
  EXPECT_EQ(parseIsoDate(u""), std::nullopt);
  for (const char16_t* text :
       {u"2024", u"2024-05", u"2024-5-1", u"24-05-01", u"2024-05-01T", u"2024-05-01 ", u" 2024-05-01",
        u"2024-05-01x13:30:00", u"2024-05-01T1:30", u"2024-05-01T13", u"2024-05-01T13:30:",
        u"2024-05-01T13:30:00.", u"2024-05-01T13:30:00Z", u"2024-05-01T24:00:00", u"2024-02-30",
        u"2024/05/01", u"0099-01-01", u"-024-05-01", u"2024-05-01T13:30:00.5x"}) {
    EXPECT_EQ(parseIsoDate(text), std::nullopt) << XString(text).toUtf8();
  }
}

}  // namespace
}  // namespace tessera
