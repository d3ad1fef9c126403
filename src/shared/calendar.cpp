#include "shared/calendar.h"

#include <charconv>
#include <chrono>
#include <cmath>

namespace tessera {
namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr std::int32_t firstYear = 100;
constexpr std::int32_t lastYear = 9999;
constexpr double secondsPerDay = 86400;

constexpr sys_days civilDay(std::int32_t year, std::int32_t month, std::int32_t day) {
  return sys_days(year_month_day(std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                 std::chrono::day(static_cast<unsigned>(day))));
}

constexpr sys_days dayZero = civilDay(1899, 12, 30);
constexpr double firstDay = (civilDay(firstYear, 1, 1) - dayZero).count();
constexpr double lastDay = (civilDay(lastYear, 12, 31) - dayZero).count();
static_assert(firstDay == -657434 && lastDay == 2958465);

constexpr bool within(std::int32_t value, std::int32_t low, std::int32_t high) {
  return value >= low && value <= high;
}

bool isValid(const CalendarTime& time) {
  if (!within(time.year, firstYear, lastYear) || !within(time.month, 1, 12) || !within(time.day, 1, 31)) {
    return false;
  }
  if (!within(time.hour, 0, 23) || !within(time.minute, 0, 59) || !within(time.second, 0, 59)) return false;
  return year_month_day(std::chrono::year(time.year), std::chrono::month(static_cast<unsigned>(time.month)),
                        std::chrono::day(static_cast<unsigned>(time.day)))
      .ok();
}

// The fraction counts forward from midnight before day zero too.
double joined(double day, double timeOfDay) { return day < 0 ? day - timeOfDay : day + timeOfDay; }

// Reads a text from its front; every reader says whether it found what it wants.
class Scanner {
 public:
  explicit Scanner(std::u16string_view text) : text_(text) {}

  bool done() const { return text_.empty(); }
  bool nextIs(char16_t unit) const { return !text_.empty() && text_.front() == unit; }
  bool skip(char16_t unit) {
    if (!nextIs(unit)) return false;
    text_.remove_prefix(1);
    return true;
  }
  bool nextIsDigit() const { return !text_.empty() && text_.front() >= u'0' && text_.front() <= u'9'; }
  std::int32_t takeDigit() {
    const std::int32_t digit = text_.front() - u'0';
    text_.remove_prefix(1);
    return digit;
  }
  bool number(std::int32_t digits, std::int32_t& value) {
    value = 0;
    for (std::int32_t i = 0; i < digits; ++i) {
      if (!nextIsDigit()) return false;
      value = value * 10 + takeDigit();
    }
    return true;
  }
  // ".125", at least one digit.
  bool fraction(double& value) {
    if (!skip(u'.') || !nextIsDigit()) return false;
    value = 0;
    for (double weight = 0.1; nextIsDigit(); weight /= 10) value += weight * takeDigit();
    return true;
  }

 private:
  std::u16string_view text_;
};

bool scanTime(Scanner& scanner, CalendarTime& time, double& fraction) {
  if (!scanner.number(2, time.hour) || !scanner.skip(u':') || !scanner.number(2, time.minute)) return false;
  if (scanner.done()) return true;
  if (!scanner.skip(u':') || !scanner.number(2, time.second)) return false;
  return scanner.done() || (scanner.fraction(fraction) && scanner.done());
}

char16_t* putNumber(char16_t* out, std::int32_t digits, std::int32_t value) {
  for (std::int32_t i = digits - 1; i >= 0; --i, value /= 10)
    out[i] = static_cast<char16_t>(u'0' + value % 10);
  return out + digits;
}

}  // namespace

std::optional<double> dateNumber(const CalendarTime& time) {
  if (!isValid(time)) return std::nullopt;
  const double day = (civilDay(time.year, time.month, time.day) - dayZero).count();
  return joined(day, (time.hour * 3600 + time.minute * 60 + time.second) / secondsPerDay);
}

std::optional<CalendarTime> calendarTime(double dateNumber) {
  if (!(dateNumber > firstDay - 1 && dateNumber < lastDay + 1)) return std::nullopt;
  double day = std::trunc(dateNumber);
  auto seconds = static_cast<std::int32_t>(std::lround(std::fabs(dateNumber - day) * secondsPerDay));
  if (seconds == static_cast<std::int32_t>(secondsPerDay)) {
    seconds = 0;
    day += 1;
  }
  if (day > lastDay) return std::nullopt;
  const year_month_day date(dayZero + days(static_cast<std::int32_t>(day)));
  return CalendarTime{static_cast<std::int32_t>(date.year()),
                      static_cast<std::int32_t>(static_cast<unsigned>(date.month())),
                      static_cast<std::int32_t>(static_cast<unsigned>(date.day())),
                      seconds / 3600,
                      seconds / 60 % 60,
                      seconds % 60};
}

std::optional<CalendarTime> withRolledDay(const CalendarTime& time) {
  const auto first = dateNumber({.year = time.year, .month = time.month, .day = 1});
  if (!first || !within(time.day, 0, 31)) return std::nullopt;
  auto rolled = calendarTime(*first + (time.day - 1));
  if (!rolled) return std::nullopt;
  rolled->hour = time.hour;
  rolled->minute = time.minute;
  rolled->second = time.second;
  return rolled;
}

std::optional<double> parseIsoDate(std::u16string_view text) {
  Scanner scanner(text);
  CalendarTime time;
  double fraction = 0;
  if (!scanner.number(4, time.year) || !scanner.skip(u'-') || !scanner.number(2, time.month) ||
      !scanner.skip(u'-') || !scanner.number(2, time.day)) {
    return std::nullopt;
  }
  if (!scanner.done()) {
    if (!scanner.skip(u'T') && !scanner.skip(u' ')) return std::nullopt;
    if (!scanTime(scanner, time, fraction)) return std::nullopt;
  }
  std::optional<double> number = dateNumber(time);
  if (number) *number = joined(*number, fraction / secondsPerDay);
  return number;
}

XString isoDateText(double dateNumber, char16_t separator) {
  const std::optional<CalendarTime> time = calendarTime(dateNumber);
  if (!time) return {};
  char16_t text[19];
  char16_t* end = putNumber(text, 4, time->year);
  *end++ = u'-';
  end = putNumber(end, 2, time->month);
  *end++ = u'-';
  end = putNumber(end, 2, time->day);
  if (time->hour != 0 || time->minute != 0 || time->second != 0) {
    *end++ = separator;
    end = putNumber(end, 2, time->hour);
    *end++ = u':';
    end = putNumber(end, 2, time->minute);
    *end++ = u':';
    end = putNumber(end, 2, time->second);
  }
  return std::u16string_view(text, static_cast<std::size_t>(end - text));
}

}  // namespace tessera
