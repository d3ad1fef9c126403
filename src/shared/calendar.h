// Date numbers and calendar fields.

#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include <tessera/xstring.h>

namespace tessera {

// Calendar fields in the proleptic Gregorian calendar, years 100 to 9999.
struct CalendarTime {
  std::int32_t year = 1899;
  std::int32_t month = 12;  // 1 to 12
  std::int32_t day = 30;    // 1 to 31
  std::int32_t hour = 0;
  std::int32_t minute = 0;
  std::int32_t second = 0;
  bool operator==(const CalendarTime&) const = default;
};

// The date number: whole days since 30 December 1899, the fraction is the time of day. Before that day the
// fraction still counts forward from midnight, so -1.25 is 29 December 1899, 06:00. Nothing for fields
// outside the calendar.
std::optional<double> dateNumber(const CalendarTime& time);

// The fields of a date number, rounded to the nearest second; nothing outside the years 100 to 9999.
std::optional<CalendarTime> calendarTime(double dateNumber);

// The time with a day that its month has: what goes beyond the month's end runs into the next one, day 0 is
// the last day of the month before. Nothing for other days than 0 to 31 and for months outside the calendar.
std::optional<CalendarTime> withRolledDay(const CalendarTime& time);

// ISO 8601: "2024-05-01", "2024-05-01T13:30:00", a blank in place of the T; nothing for any other text.
std::optional<double> parseIsoDate(std::u16string_view text);

// "2024-05-01" for a whole day, "2024-05-01 13:30:00" otherwise; the empty text outside the calendar.
XString isoDateText(double dateNumber, char16_t separator = u' ');

}  // namespace tessera
