#include "backends/headless/headless_timers.h"

#include <algorithm>

namespace tessera {

void HeadlessTimers::start(std::int32_t id, std::int32_t milliseconds) {
  stop(id);
  const std::int32_t period = std::max(milliseconds, leastPeriod);
  timers_.push_back({id, period, now_ + period});
}

void HeadlessTimers::stop(std::int32_t id) {
  std::erase_if(timers_, [id](const Timer& timer) { return timer.id == id; });
}

void HeadlessTimers::pass(std::int64_t milliseconds, const Fire& fire) {
  const std::int64_t end = now_ + milliseconds;
  for (;;) {
    const auto next = std::min_element(timers_.begin(), timers_.end(),
                                       [](const Timer& a, const Timer& b) { return a.due < b.due; });
    if (next == timers_.end() || next->due > end) break;
    goTo(next->due);
    next->due += next->period;
    fire(next->id);
  }
  goTo(end);
}

// Whatever fires may let time pass itself, which cannot be taken back.
void HeadlessTimers::goTo(std::int64_t time) {
  if (time <= now_) return;
  clock_.advance(time - now_);
  now_ = time;
}

}  // namespace tessera
