// Who has the keyboard focus.

#pragma once

#include <cstdint>

namespace tessera {

// A window that keys can go to. Either call may destroy the holder that it is made to, and may move the focus
// on.
class FocusHolder {
 public:
  virtual ~FocusHolder() = default;
  // Null: the focus goes to another program.
  virtual void focusLost(const FocusHolder* next) = 0;
  virtual void focusGained() = 0;
};

class KeyboardFocus {
 public:
  // Null while another program has it.
  FocusHolder* holder() const { return holder_; }
  // The holder is the new one from the start; the old one is told first. When that moves the focus again, the
  // later move wins and the first one tells nobody else.
  void moveTo(FocusHolder* next);
  // The holder goes away: nobody is told.
  void forget(const FocusHolder* gone);

 private:
  FocusHolder* holder_ = nullptr;
  std::int64_t moves_ = 0;
};

}  // namespace tessera
