// The mouse capture of a press.

#pragma once

#include "interaction/grid_parts.h"

namespace tessera {

// A Refresh may end what the press was about while the button is still down; the capture then goes back when
// the button comes up.
class PressCapture {
 public:
  explicit PressCapture(GridParts& parts) : parts_(parts) {}

  void take() {
    taken_ = true;
    if (parts_.window) parts_.window->setCapture(true);
  }
  // False when there is nothing to give back.
  bool release() {
    if (!taken_) return false;
    taken_ = false;
    if (parts_.window) parts_.window->setCapture(false);
    return true;
  }

 private:
  GridParts& parts_;
  bool taken_ = false;
};

}  // namespace tessera
