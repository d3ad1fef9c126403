// Lists of connected listeners that may change while they are called.

#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace tessera {

// Listeners are borrowed, in the order of their connections. One that disconnects during a call is not called
// any more; one that connects during a call is called from the next one on.
template <class Sink>
class Connections {
 public:
  // A cookie above 0 that disconnects.
  std::uint32_t connect(Sink* sink) {
    entries_.push_back({++lastCookie_, sink});
    return lastCookie_;
  }
  // Unknown cookies are ignored.
  void disconnect(std::uint32_t cookie) {
    std::erase_if(entries_, [cookie](const Entry& entry) { return entry.cookie == cookie; });
  }
  bool empty() const { return entries_.empty(); }

  template <class Call>
  void forEach(Call call) const {
    const std::vector<Entry> present = entries_;
    for (const Entry& entry : present) {
      if (isConnected(entry.cookie)) call(*entry.sink);
    }
  }

 private:
  struct Entry {
    std::uint32_t cookie;
    Sink* sink;
  };
  bool isConnected(std::uint32_t cookie) const {
    return std::any_of(entries_.begin(), entries_.end(),
                       [cookie](const Entry& entry) { return entry.cookie == cookie; });
  }

  std::vector<Entry> entries_;
  std::uint32_t lastCookie_ = 0;
};

}  // namespace tessera
