// What a paint asks of the window.

#pragma once

#include <optional>

#include "shared/rect.h"

namespace tessera {

struct PaintResult {
  bool painted = false;             // false: painting is off, fillWindowColor() takes its place
  std::optional<Rect> editorPlace;  // where the open edit window belongs
  bool parkEditor = false;          // the focus cell is out of view: the edit window goes to parkedEditor
};

// Far off the screen: an edit window that is out of view stays open.
inline constexpr Rect parkedEditor{-3000, -3000, -1000, -1000};

}  // namespace tessera
