// The events of the grid control.

#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include <tessera/status.h>
#include <tessera/xvalue.h>

namespace tessera {

enum class EventId : std::int32_t {
  OnLButtonDown = 1,
  OnLButtonUp,
  OnLButtonDblClk,
  OnRButtonDown,
  OnRButtonUp,
  OnRButtonDblClk,
  OnMenuSelected,
  OnChar,
  OnSelChange,
  OnSelChanged,
  OnSetFocus,
  OnKillFocus,
  OnPopup,
  OnEnter,
  OnExit,
  OnCloseUp,
  OnDropDown,
  OnFirstUp,
  OnLastDown,
  OnKeyDown,
  OnError,
  OnExpanding,
  OnExpanded,
  OnCollapsing,
  OnCollapsed,
  OnDrag,
  OnDragging,
  OnDrop,
  OnPaste,
  OnCopy,
  OnHeadCheckClick,
};

// What a listener may answer.
enum class EventAnswer {
  None,
  Veto,    // VT_BOOL: false refuses what is about to happen; true without an answer
  Number,  // VT_I4: what becomes of an edit, as OnExit has it; 2 without an answer
};

struct EventArgument {
  std::string_view name;
  VarType type = VT_I4;  // VT_VARIANT: any
};

struct EventRow {
  EventId id;
  std::string_view name;
  std::span<const EventArgument> arguments;
  EventAnswer answer = EventAnswer::None;
};

namespace event_arguments {
// `type` is the region (1 indicator, 2 header, 3 row, 4 row that sums others, 5 summary band, 6 nothing),
// `row` -1 where there is none, -2 and -3 in the indicator's cells of header and summary band; `x` and `y`
// are client pixels.
inline constexpr std::array<EventArgument, 5> mouse{{{"type"}, {"row"}, {"colid", VT_BSTR}, {"x"}, {"y"}}};
inline constexpr std::array<EventArgument, 2> menu{{{"code"}, {"itemtext", VT_BSTR}}};
// `colid` is empty where no column applies; `index` is the dataset row, from 1.
inline constexpr std::array<EventArgument, 2> cell{{{"colid", VT_BSTR}, {"index"}}};
// `flag` is 1 for a press of the button, 0 for Enter.
inline constexpr std::array<EventArgument, 3> popup{{{"colid", VT_BSTR}, {"index"}, {"flag"}}};
inline constexpr std::array<EventArgument, 3> exit{{{"colid", VT_BSTR}, {"index"}, {"olddata", VT_BSTR}}};
// `state` is 1 for Ctrl plus 2 for Shift.
inline constexpr std::array<EventArgument, 2> key{{{"kcode"}, {"state"}}};
inline constexpr std::array<EventArgument, 2> error{{{"code"}, {"string", VT_BSTR}}};
inline constexpr std::array<EventArgument, 1> row{{{"index"}}};
inline constexpr std::array<EventArgument, 3> drop{{{"colid", VT_BSTR}, {"index"}, {"data", VT_VARIANT}}};
inline constexpr std::array<EventArgument, 2> copy{{{"CellSelected", VT_I2}, {"BlockSelected", VT_I2}}};
inline constexpr std::array<EventArgument, 3> headCheck{{{"col"}, {"colid", VT_BSTR}, {"bCheck"}}};
}  // namespace event_arguments

// Every event, in the order of the dispids from 1.
inline constexpr std::array<EventRow, 31> eventTable = {{
    {EventId::OnLButtonDown, "OnLButtonDown", event_arguments::mouse},
    {EventId::OnLButtonUp, "OnLButtonUp", event_arguments::mouse},
    {EventId::OnLButtonDblClk, "OnLButtonDblClk", event_arguments::mouse},
    {EventId::OnRButtonDown, "OnRButtonDown", event_arguments::mouse},
    {EventId::OnRButtonUp, "OnRButtonUp", event_arguments::mouse},
    {EventId::OnRButtonDblClk, "OnRButtonDblClk", event_arguments::mouse},
    {EventId::OnMenuSelected, "OnMenuSelected", event_arguments::menu},
    {EventId::OnChar, "OnChar", {}},
    {EventId::OnSelChange, "OnSelChange", event_arguments::cell, EventAnswer::Veto},
    {EventId::OnSelChanged, "OnSelChanged", event_arguments::cell},
    {EventId::OnSetFocus, "OnSetFocus", {}},
    {EventId::OnKillFocus, "OnKillFocus", {}},
    {EventId::OnPopup, "OnPopup", event_arguments::popup},
    {EventId::OnEnter, "OnEnter", event_arguments::cell},
    {EventId::OnExit, "OnExit", event_arguments::exit, EventAnswer::Number},
    {EventId::OnCloseUp, "OnCloseUp", event_arguments::cell},
    {EventId::OnDropDown, "OnDropDown", event_arguments::cell},
    {EventId::OnFirstUp, "OnFirstUp", {}},
    {EventId::OnLastDown, "OnLastDown", {}},
    {EventId::OnKeyDown, "OnKeyDown", event_arguments::key},
    {EventId::OnError, "OnError", event_arguments::error},
    {EventId::OnExpanding, "OnExpanding", event_arguments::row, EventAnswer::Veto},
    {EventId::OnExpanded, "OnExpanded", event_arguments::row},
    {EventId::OnCollapsing, "OnCollapsing", event_arguments::row, EventAnswer::Veto},
    {EventId::OnCollapsed, "OnCollapsed", event_arguments::row},
    {EventId::OnDrag, "OnDrag", event_arguments::cell, EventAnswer::Veto},
    {EventId::OnDragging, "OnDragging", event_arguments::cell, EventAnswer::Veto},
    {EventId::OnDrop, "OnDrop", event_arguments::drop},
    {EventId::OnPaste, "OnPaste", event_arguments::cell},
    {EventId::OnCopy, "OnCopy", event_arguments::copy},
    {EventId::OnHeadCheckClick, "OnHeadCheckClick", event_arguments::headCheck},
}};

constexpr const EventRow& eventRow(EventId id) {
  return eventTable[static_cast<std::size_t>(static_cast<std::int32_t>(id) - 1)];
}
static_assert([] {
  for (const EventRow& row : eventTable) {
    if (&eventRow(row.id) != &row) return false;
  }
  return true;
}());

constexpr std::string_view eventName(EventId id) { return eventRow(id).name; }

// A connected listener. Events come on the control's thread in the middle of the operation that raised them;
// the listener may call the control again. `result` comes in as VT_EMPTY; events that ask (a VT_BOOL that
// vetoes when false, OnExit a VT_I4) take what the last listener stored, any other type counting as no
// answer. The status is ignored.
class ITesseraEvents {
 public:
  virtual ~ITesseraEvents() = default;
  virtual HResult Invoke(EventId id, std::span<const XValue> arguments, XValue& result) = 0;
};

}  // namespace tessera
