#include "expr/date_text.h"

#include <array>
#include <chrono>
#include <cmath>

#include "expr/english_locale.h"

namespace tessera {
namespace {

constexpr double secondsPerDay = 86400;

std::int32_t weekdayOf(const CalendarTime& time) {
  using namespace std::chrono;
  const sys_days date(year_month_day(year(time.year), month(static_cast<unsigned>(time.month)),
                                     day(static_cast<unsigned>(time.day))));
  return static_cast<std::int32_t>(weekday(date).c_encoding());
}

constexpr bool isDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
constexpr char16_t upper(char16_t unit) {
  return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - (u'a' - u'A')) : unit;
}

struct Digits {
  std::int32_t value = 0;
  std::int32_t count = 0;  // 0: there was no number
};

// Reads a date text from its front.
class DateReader {
 public:
  explicit DateReader(std::u16string_view text) : text_(text) { skipBlanks(); }

  bool done() const { return text_.empty(); }
  // The number of digits before the next character that is none, with the character behind.
  bool startsTime() const {
    const std::size_t digits = digitCount();
    return digits > 0 && digits < text_.size() && text_[digits] == u':';
  }

  Digits number() {
    constexpr std::size_t longest = 4;
    Digits digits;
    if (digitCount() > longest) return digits;
    for (; !text_.empty() && isDigit(text_.front()); text_.remove_prefix(1), ++digits.count) {
      digits.value = digits.value * 10 + (text_.front() - u'0');
    }
    skipBlanks();
    return digits;
  }

  bool skip(char16_t unit) {
    if (text_.empty() || text_.front() != unit) return false;
    text_.remove_prefix(1);
    skipBlanks();
    return true;
  }

  // Blanks have been passed over already, so that the separator of two numbers may be blanks alone.
  void skipSeparator() { (void)(skip(u'/') || skip(u'.') || skip(u'-')); }

  // "AM" or "PM" in any case.
  std::optional<bool> afternoon() {
    if (text_.size() < 2 || upper(text_[1]) != u'M') return std::nullopt;
    const char16_t half = upper(text_[0]);
    if (half != u'A' && half != u'P') return std::nullopt;
    text_.remove_prefix(2);
    skipBlanks();
    return half == u'P';
  }

 private:
  std::size_t digitCount() const {
    std::size_t count = 0;
    while (count < text_.size() && isDigit(text_[count])) ++count;
    return count;
  }
  void skipBlanks() {
    while (!text_.empty() && (text_.front() == u' ' || text_.front() == u'\t')) text_.remove_prefix(1);
  }

  std::u16string_view text_;
};

std::int32_t fullYear(const Digits& year) {
  constexpr std::int32_t firstOfCentury = 30;
  if (year.count > 2) return year.value;
  return year.value + (year.value < firstOfCentury ? 2000 : 1900);
}

bool readDate(DateReader& reader, DateOrder order, CalendarTime& time) {
  std::array<Digits, 3> parts;
  for (Digits& part : parts) {
    part = reader.number();
    if (part.count == 0) return false;
    if (&part != &parts.back()) reader.skipSeparator();
  }
  if (parts[0].count > 2) order = DateOrder::YearMonthDay;
  static constexpr std::array<std::array<std::size_t, 3>, 3> places = {{{0, 1, 2}, {2, 1, 0}, {2, 0, 1}}};
  const auto& place = places[static_cast<std::size_t>(order)];
  if (parts[place[1]].count > 2 || parts[place[2]].count > 2) return false;
  time.year = fullYear(parts[place[0]]);
  time.month = parts[place[1]].value;
  time.day = parts[place[2]].value;
  return true;
}

bool readTime(DateReader& reader, CalendarTime& time) {
  const Digits hour = reader.number();
  if (hour.count == 0 || !reader.skip(u':')) return false;
  const Digits minute = reader.number();
  if (minute.count == 0) return false;
  Digits second{0, 1};
  if (reader.skip(u':')) second = reader.number();
  if (second.count == 0) return false;
  time.hour = hour.value;
  time.minute = minute.value;
  time.second = second.value;
  if (const auto afternoon = reader.afternoon()) {
    if (time.hour < 1 || time.hour > 12) return false;
    time.hour = time.hour % 12 + (*afternoon ? 12 : 0);
  }
  return true;
}

void appendNumber(XString& text, std::int32_t value, std::int32_t digits) {
  XString number;
  number.format("%0*d", digits, value);
  text += number;
}

void appendField(XString& text, const XExprContext& context, LocaleOwner owner, char16_t field,
                 const CalendarTime& time) {
  switch (field) {
    case u'A':
      text += localeOf(context).weekdayName(owner, weekdayOf(time));
      return;
    case u'B':
      text += localeOf(context).monthName(owner, time.month);
      return;
    case u'd':
      return appendNumber(text, time.day, 2);
    case u'H':
      return appendNumber(text, time.hour, 2);
    case u'm':
      return appendNumber(text, time.month, 2);
    case u'M':
      return appendNumber(text, time.minute, 2);
    case u'S':
      return appendNumber(text, time.second, 2);
    case u'y':
      return appendNumber(text, time.year % 100, 2);
    default:
      return appendNumber(text, time.year, 4);
  }
}

}  // namespace

double presentTime(const XExprContext& context) {
  if (context.clock) return context.clock->now();
  constexpr double dayOfUnixTime = 25569;
  const auto since = std::chrono::system_clock::now().time_since_epoch();
  return dayOfUnixTime + std::floor(std::chrono::duration<double>(since).count()) / secondsPerDay;
}

std::optional<double> parseDateText(const XExprContext& context, std::u16string_view text) {
  if (const auto iso = parseIsoDate(text)) return iso;
  DateReader reader(text);
  CalendarTime time;  // day zero, for a time alone
  if (reader.done()) return std::nullopt;
  if (!reader.startsTime() && !readDate(reader, localeOf(context).dateOrder(), time)) return std::nullopt;
  if (!reader.done() && !readTime(reader, time)) return std::nullopt;
  return reader.done() ? dateNumber(time) : std::nullopt;
}

XString userDateText(const XExprContext& context, double dateNumber) {
  const auto time = calendarTime(dateNumber);
  if (!time) return {};
  const XString clock = formatTime(context, LocaleOwner::User, u"%H:%M:%S", *time);
  const CalendarTime midnight{.year = time->year, .month = time->month, .day = time->day};
  if (*time != midnight && midnight == CalendarTime()) return clock;
  XString text = formatTime(context, LocaleOwner::User, localeOf(context).datePattern(), *time);
  if (*time == midnight) return text;
  text += u" ";
  text += clock;
  return text;
}

XString formatTime(const XExprContext& context, LocaleOwner owner, std::u16string_view pattern,
                   const CalendarTime& time) {
  XString text;
  while (!pattern.empty()) {
    const std::size_t literal = std::min(pattern.find(u'%'), pattern.size());
    text += pattern.substr(0, literal);
    pattern.remove_prefix(literal);
    if (pattern.empty()) break;
    appendField(text, context, owner, pattern[1], time);
    pattern.remove_prefix(2);
  }
  return text;
}

}  // namespace tessera
