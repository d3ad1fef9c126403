// Subscribers that may come and go while they are being called.

#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include <tessera/status.h>

namespace tessera {

// Subscribers are called in the order of their subscription. One that leaves inside a call is not called any
// more, one that comes inside a call hears the next. Calls may nest.
template <class Sink>
class SinkList {
 public:
  // E_INVALIDARG for null; a second subscription of the same sink changes nothing.
  HResult advise(Sink* sink) {
    if (!sink) return E_INVALIDARG;
    if (std::find(sinks_.begin(), sinks_.end(), sink) == sinks_.end()) sinks_.push_back(sink);
    return S_OK;
  }
  void unadvise(Sink* sink) {
    std::replace(sinks_.begin(), sinks_.end(), sink, static_cast<Sink*>(nullptr));
    tidy();
  }
  void unadviseAll() {
    std::fill(sinks_.begin(), sinks_.end(), nullptr);
    tidy();
  }

  // `call(sink)` returns false to end the round.
  template <class Call>
  void each(Call call) {
    const std::size_t count = sinks_.size();
    ++running_;
    for (std::size_t i = 0; i < count; ++i)
      if (sinks_[i] && !call(*sinks_[i])) break;
    --running_;
    tidy();
  }

 private:
  void tidy() {
    if (running_ == 0) std::erase(sinks_, nullptr);
  }

  std::vector<Sink*> sinks_;  // null: left inside a call
  std::int32_t running_ = 0;  // calls under way, nested ones included
};

}  // namespace tessera
