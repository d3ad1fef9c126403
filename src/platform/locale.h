// The words, the date order and the decimal point of a language.

#pragma once

#include <cstdint>

#include <tessera/xstring.h>

namespace tessera {

// Whose language: that of the person at the machine, or that of the machine.
enum class LocaleOwner : std::uint8_t { User, System };

enum class DateOrder : std::uint8_t { YearMonthDay, DayMonthYear, MonthDayYear };

// Answers never change, and any thread may ask.
class Locale {
 public:
  virtual ~Locale() = default;
  virtual XString weekdayName(LocaleOwner owner, std::int32_t weekday) const = 0;  // 0 Sunday to 6
  virtual XString monthName(LocaleOwner owner, std::int32_t month) const = 0;      // 1 to 12
  // In which order the user writes a date of numbers.
  virtual DateOrder dateOrder() const = 0;
  // How: %d, %m and %Y in that order, with what stands between them.
  virtual XString datePattern() const = 0;
  // What the user writes between the digits of a number and those of its fraction.
  virtual char16_t decimalPoint() const = 0;
};

}  // namespace tessera
