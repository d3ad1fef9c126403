// The words of the languages that the environment names.

#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/locale.h"

namespace tessera {

// Looks everything up once and leaves the process's own locale alone. The user's language is that of LC_ALL,
// LC_TIME or LANG, the machine's that of LANG, and the user's numbers go by LC_ALL, LC_NUMERIC or LANG; a
// language that is not installed is English.
class NativeLocale : public Locale {
 public:
  NativeLocale();
  NativeLocale(const std::string& user, const std::string& system, const std::string& numbers);

  XString weekdayName(LocaleOwner owner, std::int32_t weekday) const override;
  XString monthName(LocaleOwner owner, std::int32_t month) const override;
  DateOrder dateOrder() const override { return order_; }
  XString datePattern() const override { return pattern_; }
  char16_t decimalPoint() const override { return decimalPoint_; }

 private:
  struct Words {
    std::array<XString, 7> weekdays;
    std::array<XString, 12> months;
  };
  const Words& wordsOf(LocaleOwner owner) const { return owner == LocaleOwner::User ? user_ : system_; }

  Words user_;
  Words system_;
  DateOrder order_ = DateOrder::MonthDayYear;
  XString pattern_;
  char16_t decimalPoint_ = u'.';
};

// In which order a strftime pattern such as "%d.%m.%Y" has its fields.
DateOrder dateOrderOf(std::string_view pattern);

// The pattern with years of four digits, days and months of two; the order's own one with slashes (or hyphens
// behind a year) when it has anything but numbers in it.
std::string numericDatePattern(std::string_view pattern);

}  // namespace tessera
