// Functions on dates and times.

#include <optional>

#include "expr/date_text.h"
#include "expr/function_handlers.h"

namespace tessera::expr_function {
namespace {

// Whatever function failed.
const XValue* failDate(ExprCall& call) {
  return call.fail(ExprErrorCode::InvalidArguments, std::string_view("DATE"));
}

CalendarTime presentFields(const ExprCall& call) {
  return calendarTime(presentTime(call.context())).value_or(CalendarTime());
}

template <std::int32_t CalendarTime::*field>
const XValue* fieldOf(ExprCall& call) {
  const auto time = calendarTime(call.number(0));
  return time ? call.giveNumber((*time).*field) : failDate(call);
}

const XValue* formatted(ExprCall& call, std::u16string_view pattern,
                        LocaleOwner owner = LocaleOwner::System) {
  const auto time = calendarTime(call.number(0));
  if (!time) return failDate(call);
  return call.giveText(formatTime(call.context(), owner, pattern, *time));
}

const XValue* giveFields(ExprCall& call, const CalendarTime& time) {
  const auto rolled = withRolledDay(time);
  const auto number = rolled ? dateNumber(*rolled) : std::nullopt;
  return number ? call.giveDate(*number) : failDate(call);
}

CalendarTime dateFields(const ExprCall& call) {
  return {.year = call.integer(0), .month = call.integer(1), .day = call.integer(2)};
}

bool isZeroDate(const CalendarTime& time) { return time.year == 0 && time.month == 0 && time.day == 0; }

}  // namespace

const XValue* cDow(ExprCall& call) { return formatted(call, u"%A"); }
const XValue* cMonth(ExprCall& call) { return formatted(call, u"%B", LocaleOwner::User); }
const XValue* dmy(ExprCall& call) { return formatted(call, u"%d %B %y"); }
const XValue* mdy(ExprCall& call) { return formatted(call, u"%B %d, %y"); }
const XValue* dtos(ExprCall& call) { return formatted(call, u"%Y%m%d"); }
const XValue* dtoc(ExprCall& call) { return formatted(call, call.number(1) == 1 ? u"%Y%m%d" : u"%Y-%m-%d"); }

const XValue* year(ExprCall& call) { return fieldOf<&CalendarTime::year>(call); }
const XValue* month(ExprCall& call) { return fieldOf<&CalendarTime::month>(call); }
const XValue* day(ExprCall& call) { return fieldOf<&CalendarTime::day>(call); }
const XValue* hour(ExprCall& call) { return fieldOf<&CalendarTime::hour>(call); }
const XValue* minute(ExprCall& call) { return fieldOf<&CalendarTime::minute>(call); }
const XValue* sec(ExprCall& call) { return fieldOf<&CalendarTime::second>(call); }

const XValue* ctod(ExprCall& call) {
  const auto number = parseDateText(call.context(), call.text(0));
  return number ? call.giveDate(*number) : failDate(call);
}

const XValue* date(ExprCall& call) {
  const CalendarTime time = dateFields(call);
  if (isZeroDate(time)) return call.giveDate(presentTime(call.context()));
  return giveFields(call, time);
}

// A time without a date is one of today.
const XValue* dateTime(ExprCall& call) {
  CalendarTime time = dateFields(call);
  const bool today = isZeroDate(time);
  if (today) time = presentFields(call);
  const std::int32_t hour = call.integer(3);
  const std::int32_t minute = call.integer(4);
  const std::int32_t second = call.integer(5);
  if (today && hour == 0 && minute == 0 && second == 0) return call.giveDate(presentTime(call.context()));
  time.hour = hour;
  time.minute = minute;
  time.second = second;
  return giveFields(call, time);
}

const XValue* time(ExprCall& call) {
  const double number = call.number(0);
  const auto fields = number == 0 ? presentFields(call) : calendarTime(number);
  if (!fields) return failDate(call);
  return call.giveText(formatTime(call.context(), LocaleOwner::System, u"%H:%M:%S", *fields));
}

const XValue* seconds(ExprCall& call) {
  const CalendarTime now = presentFields(call);
  return call.giveNumber((now.hour * 60 + now.minute) * 60 + now.second);
}

}  // namespace tessera::expr_function
