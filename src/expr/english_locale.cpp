#include "expr/english_locale.h"

#include <array>

namespace tessera {

XString EnglishLocale::weekdayName(LocaleOwner, std::int32_t weekday) const {
  static constexpr std::array<const char16_t*, 7> names = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                                           u"Thursday", u"Friday", u"Saturday"};
  return names.at(static_cast<std::size_t>(weekday));
}

XString EnglishLocale::monthName(LocaleOwner, std::int32_t month) const {
  static constexpr std::array<const char16_t*, 12> names = {
      u"January", u"February", u"March",     u"April",   u"May",      u"June",
      u"July",    u"August",   u"September", u"October", u"November", u"December"};
  return names.at(static_cast<std::size_t>(month - 1));
}

}  // namespace tessera
