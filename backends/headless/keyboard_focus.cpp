#include "backends/headless/keyboard_focus.h"

namespace tessera {

void KeyboardFocus::moveTo(FocusHolder* next) {
  if (next == holder_) return;
  FocusHolder* const old = holder_;
  holder_ = next;
  const std::int64_t move = ++moves_;
  if (old) old->focusLost(next);
  if (move == moves_ && next) next->focusGained();
}

void KeyboardFocus::forget(const FocusHolder* gone) {
  if (gone != holder_) return;
  holder_ = nullptr;
  ++moves_;
}

}  // namespace tessera
