#include "tools/tessera/event_handlers.h"

#include "shared/compare.h"
#include "shared/utf.h"
#include "tools/tessera/value_text.h"

namespace tessera {

namespace {

std::string eventLine(EventId id, std::span<const XValue> arguments) {
  std::string line = "! " + std::string(eventName(id)) + "(";
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (i > 0) line += ", ";
    line += valueText(arguments[i]);
  }
  return line + ")";
}

}  // namespace

std::optional<EventId> EventHandlers::eventOfName(std::u16string_view name) {
  for (const EventRow& row : eventTable) {
    if (equalNoCase(utf16FromUtf8(row.name), name)) return row.id;
  }
  return std::nullopt;
}

// The command may set or remove this very handler: what it was when the event came counts.
HResult EventHandlers::Invoke(EventId id, std::span<const XValue> arguments, XValue& result) {
  transcript_.line(eventLine(id, arguments));
  const Handler present = handler(id);
  if (!present.command.empty() && transcript_.depth() < maxDepth) {
    const Transcript::Indent indent(transcript_);
    run_(present.command);
  }
  if (present.answer) result = *present.answer;
  return S_OK;
}

}  // namespace tessera
