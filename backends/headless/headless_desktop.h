// The desktop that a headless window stands on.

#pragma once

#include <optional>

#include "backends/headless/headless_dispatcher.h"
#include "backends/headless/headless_menus.h"
#include "backends/headless/headless_timers.h"
#include "backends/headless/keyboard_focus.h"
#include "backends/headless/virtual_clock.h"
#include "platform/window.h"

namespace tessera {

class HeadlessWindow;

class HeadlessInputMethod : public InputMethod {
 public:
  void setNative(bool native) override { native_ = native; }
  // Nothing before somebody has chosen.
  std::optional<bool> native() const { return native_; }

 private:
  std::optional<bool> native_;
};

// One screen with one window on it, whose client area begins in the screen's corner. Outlives its windows.
struct HeadlessDesktop {
  static constexpr Size screen{1920, 1080};

  HeadlessWindow* window = nullptr;  // null while there is none
  KeyboardFocus focus;
  bool keysToGrid = false;  // a key is on its way to the grid's window although nobody has the focus
  Modifiers modifiers;
  Point pointer;          // screen pixels
  bool captured = false;  // the window gets the mouse wherever the pointer is
  Cursor cursor = Cursor::Arrow;
  VirtualClock clock;
  HeadlessTimers timers{clock};
  HeadlessMenus menus;
  HeadlessDispatcher dispatcher;
  HeadlessInputMethod inputMethod;

  HeadlessDesktop() = default;
  HeadlessDesktop(const HeadlessDesktop&) = delete;
  HeadlessDesktop& operator=(const HeadlessDesktop&) = delete;
};

}  // namespace tessera
