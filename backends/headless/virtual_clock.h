// The local time that a headless program sees.

#pragma once

#include <cstdint>

#include "platform/clock.h"

namespace tessera {

// Stands still unless somebody sets it or lets time pass, so that the same input gives the same output on
// every day.
class VirtualClock : public Clock {
 public:
  double now() const override { return start_ + static_cast<double>(passed_) / dayMilliseconds; }
  void set(double dateNumber) {
    start_ = dateNumber;
    passed_ = 0;
  }
  void advance(std::int64_t milliseconds) { passed_ += milliseconds; }

 private:
  static constexpr double dayMilliseconds = 24.0 * 60 * 60 * 1000;

  double start_ = 45292;  // 1 January 2024, midnight
  std::int64_t passed_ = 0;
};

}  // namespace tessera
