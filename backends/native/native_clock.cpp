#include "backends/native/native_clock.h"

#include <algorithm>
#include <ctime>

#include "shared/calendar.h"

namespace tessera {

double NativeClock::now() const {
  const std::time_t present = std::time(nullptr);
  std::tm local{};
  if (!localtime_r(&present, &local)) return 0;
  constexpr int lastSecond = 59;  // leap seconds count as the last one of their minute
  const CalendarTime time{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                          local.tm_hour,        local.tm_min,     std::min(local.tm_sec, lastSecond)};
  return dateNumber(time).value_or(0);
}

}  // namespace tessera
