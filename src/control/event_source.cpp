#include "control/event_source.h"

namespace tessera {

XValue EventSource::fire(EventId id, std::span<const XValue> arguments) const {
  XValue answer;
  sinks_.forEach([&](ITesseraEvents& sink) {
    answer.setEmpty();
    sink.Invoke(id, arguments, answer);
  });
  return answer;
}

}  // namespace tessera
