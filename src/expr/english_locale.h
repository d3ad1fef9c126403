// The locale of a grid without one.

#pragma once

#include "platform/locale.h"

namespace tessera {

// English words; the month first in dates of numbers.
class EnglishLocale : public Locale {
 public:
  XString weekdayName(LocaleOwner owner, std::int32_t weekday) const override;
  XString monthName(LocaleOwner owner, std::int32_t month) const override;
  DateOrder dateOrder() const override { return DateOrder::MonthDayYear; }
  XString datePattern() const override { return u"%m/%d/%Y"; }
};

}  // namespace tessera
