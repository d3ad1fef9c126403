// Fires the control's events.

#pragma once

#include <span>

#include <tessera/events.h>

#include "hosting/connections.h"

namespace tessera {

// Any listener may call the control again, even to rebuild everything: whoever fires compares the GridToken
// of before with the present one before it goes on with a row, a column or a copy of a record.
class EventSource {
 public:
  std::uint32_t connect(ITesseraEvents* sink) { return sinks_.connect(sink); }
  void disconnect(std::uint32_t cookie) { sinks_.disconnect(cookie); }

  // What the last listener answered, VT_EMPTY when none did.
  XValue fire(EventId id, std::span<const XValue> arguments) const;

 private:
  Connections<ITesseraEvents> sinks_;
};

}  // namespace tessera
