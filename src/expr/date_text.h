// Dates as text and back.

#pragma once

#include <optional>
#include <string_view>

#include "expr/xexpr_context.h"
#include "shared/calendar.h"

namespace tessera {

// The present local time as a date number.
double presentTime(const XExprContext& context);

// The date number of ISO 8601 texts ("2024-05-01", "2024-05-01T13:30:00") and of dates in the user's order:
// three numbers between slashes, points, hyphens or blanks, a number of three or more digits in front being
// the year. Years of two digits are 1930 to 2029. A time ("13:30", "1:30:05 PM") may follow or stand alone.
std::optional<double> parseDateText(const XExprContext& context, std::u16string_view text);

// A date number as the user writes it, with the time of day ("13:30:00") unless that is midnight; day zero is
// the time alone. The empty text outside the calendar. parseDateText() reads it.
XString userDateText(const XExprContext& context, double dateNumber);

// Fills a strftime-style pattern of %A, %B, %d, %H, %m, %M, %S, %y and %Y.
XString formatTime(const XExprContext& context, LocaleOwner owner, std::u16string_view pattern,
                   const CalendarTime& time);

}  // namespace tessera
