// Who stands behind a window on the desktop.

#pragma once

#include <cstdint>

#include "interaction/key_filter.h"
#include "platform/canvas.h"

namespace tessera {

// Each call may close the window.
class WindowOwner {
 public:
  virtual ~WindowOwner() = default;
  virtual void draw(Canvas& canvas) = 0;
  virtual void message(std::uint32_t number, std::uint64_t wParam, std::int64_t lParam) = 0;
  virtual void resized() = 0;
  // Before a key goes to the window with the focus; `key` may be replaced.
  virtual KeyRoute translateKey(std::int32_t& key) = 0;
  // Ends an open edit unless the program keeps it.
  virtual void endEdit() = 0;
};

}  // namespace tessera
