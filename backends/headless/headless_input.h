// A person at the headless desktop: presses, moves and keys become messages of the window that they are for.

#pragma once

#include <cstdint>
#include <functional>

#include "backends/headless/headless_desktop.h"

namespace tessera {

class HeadlessListBox;

// Numbers are those of the mouse messages.
enum class MouseAction : std::uint32_t {
  Move = 512,
  LeftDown = 513,
  LeftUp = 514,
  LeftDouble = 515,
  RightDown = 516,
  RightUp = 517,
  RightDouble = 518,
};

// Without a window everything gets lost. Windows may come and go in every call.
class HeadlessInput {
 public:
  // Sees every key that goes down while the control has the focus, and may replace it. False: the window does
  // not get the key.
  using KeyFilter = std::function<bool(std::int32_t& key)>;

  // The desktop is borrowed.
  HeadlessInput(HeadlessDesktop& desktop, KeyFilter filter) : desktop_(desktop), filter_(std::move(filter)) {}

  // Points in client pixels. An open list and an open edit box take what happens over them.
  void mouse(MouseAction action, Point client, Modifiers modifiers);
  void wheel(Point client, std::int32_t delta);
  // A press and its release, to the window with the focus; to the grid while none of them has it. Backspace
  // does in the edit box what its character does.
  void key(std::int32_t key, Modifiers modifiers);
  void character(char16_t character);
  void focusIn();
  void focusOut() { desktop_.focus.moveTo(nullptr); }
  bool hasFocus() const { return desktop_.focus.holder() != nullptr; }
  void letPass(std::int64_t milliseconds);

 private:
  bool mouseToList(MouseAction action);
  bool mouseToBox(MouseAction action, Point client);
  void mouseToGrid(MouseAction action, Point client);
  void pressKey(std::int32_t key);
  HeadlessListBox* listUnderPointer() const;

  HeadlessDesktop& desktop_;
  KeyFilter filter_;
};

}  // namespace tessera
