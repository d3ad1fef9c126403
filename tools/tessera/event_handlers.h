// The console's ears: tells of every event and answers as it was told to.

#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>

#include <tessera/events.h>

#include "tools/tessera/transcript.h"

namespace tessera {

class EventHandlers : public ITesseraEvents {
 public:
  using RunCommand = std::function<void(const std::string& command)>;

  // Handlers that run commands may fire events again; beyond this depth they only tell of them.
  static constexpr int maxDepth = 16;

  EventHandlers(Transcript& transcript, RunCommand run) : transcript_(transcript), run_(std::move(run)) {}

  // Names compare without ASCII case.
  static std::optional<EventId> eventOfName(std::u16string_view name);

  void answer(EventId id, const XValue& value) { handler(id).answer = value; }
  void runCommand(EventId id, const std::string& command) { handler(id).command = command; }
  void remove(EventId id) { handler(id) = {}; }

  HResult Invoke(EventId id, std::span<const XValue> arguments, XValue& result) override;

 private:
  struct Handler {
    std::optional<XValue> answer;
    std::string command;  // runs before the answer; empty: none
  };
  Handler& handler(EventId id) {
    return handlers_[static_cast<std::size_t>(static_cast<std::int32_t>(id) - 1)];
  }

  Transcript& transcript_;
  RunCommand run_;
  std::array<Handler, eventTable.size()> handlers_;
};

}  // namespace tessera
