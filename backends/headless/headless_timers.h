// The timers of a window, on virtual time.

#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "backends/headless/virtual_clock.h"

namespace tessera {

class HeadlessTimers {
 public:
  using Fire = std::function<void(std::int32_t id)>;

  // As on a real desktop no timer comes more often than this.
  static constexpr std::int32_t leastPeriod = 10;

  // The clock is borrowed and goes along.
  explicit HeadlessTimers(VirtualClock& clock) : clock_(clock) {}

  // A running timer of this id starts anew.
  void start(std::int32_t id, std::int32_t milliseconds);
  void stop(std::int32_t id);
  void stopAll() { timers_.clear(); }
  // Fires what falls due, in the order of the due times, of equal ones the earlier started first. Timers may
  // be started and stopped meanwhile.
  void pass(std::int64_t milliseconds, const Fire& fire);

 private:
  struct Timer {
    std::int32_t id;
    std::int32_t period;
    std::int64_t due;
  };
  void goTo(std::int64_t time);

  VirtualClock& clock_;
  std::int64_t now_ = 0;
  std::vector<Timer> timers_;  // in the order of their starts
};

}  // namespace tessera
