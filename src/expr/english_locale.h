// The locale of a grid without one.

#pragma once

#include "expr/xexpr_context.h"

namespace tessera {

// English words; the month first in dates of numbers.
class EnglishLocale : public Locale {
 public:
  XString weekdayName(LocaleOwner owner, std::int32_t weekday) const override;
  XString monthName(LocaleOwner owner, std::int32_t month) const override;
  DateOrder dateOrder() const override { return DateOrder::MonthDayYear; }
  XString datePattern() const override { return u"%m/%d/%Y"; }
  char16_t decimalPoint() const override { return u'.'; }
};

inline const Locale& localeOf(const XExprContext& context) {
  static const EnglishLocale english;
  return context.locale ? *context.locale : english;
}

}  // namespace tessera
