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

// Names in the order of the dispids, from 1.
inline constexpr std::array<std::string_view, 31> eventNames = {
    "OnLButtonDown",   "OnLButtonUp", "OnLButtonDblClk", "OnRButtonDown", "OnRButtonUp", "OnRButtonDblClk",
    "OnMenuSelected",  "OnChar",      "OnSelChange",     "OnSelChanged",  "OnSetFocus",  "OnKillFocus",
    "OnPopup",         "OnEnter",     "OnExit",          "OnCloseUp",     "OnDropDown",  "OnFirstUp",
    "OnLastDown",      "OnKeyDown",   "OnError",         "OnExpanding",   "OnExpanded",  "OnCollapsing",
    "OnCollapsed",     "OnDrag",      "OnDragging",      "OnDrop",        "OnPaste",     "OnCopy",
    "OnHeadCheckClick"};

constexpr std::string_view eventName(EventId id) {
  return eventNames[static_cast<std::size_t>(static_cast<std::int32_t>(id) - 1)];
}

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
