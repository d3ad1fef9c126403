// The time of day.

#pragma once

namespace tessera {

class Clock {
 public:
  virtual ~Clock() = default;
  // The local time as a date number, as VT_DATE holds it. Any thread may ask.
  virtual double now() const = 0;
};

}  // namespace tessera
