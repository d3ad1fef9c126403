// The machine's clock.

#pragma once

#include "platform/clock.h"

namespace tessera {

// In the time zone that the environment names.
class NativeClock : public Clock {
 public:
  double now() const override;
};

}  // namespace tessera
