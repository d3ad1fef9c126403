// The local time that a headless program sees.

#pragma once

namespace tessera {

// Stands still until somebody sets it, so that the same input gives the same output on every day.
class VirtualClock {
 public:
  // A date number as VT_DATE holds it.
  double now() const { return now_; }
  void set(double dateNumber) { now_ = dateNumber; }

 private:
  double now_ = 45292;  // 1 January 2024, midnight
};

}  // namespace tessera
