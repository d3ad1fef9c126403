// The window port.

#pragma once

#include <cstdint>

#include "shared/rect.h"

namespace tessera {

enum class WindowBorder { None = 0, Line = 1, Sunken = 2, Raised = 3, Frame = 4 };

// Numbers are those of the scroll messages.
enum class Bar { Horizontal = 0, Vertical = 1 };

struct BarRange {
  std::int32_t minimum = 1;
  std::int32_t maximum = 1;
  std::int32_t page = 1;
  std::int32_t position = 1;
  bool operator==(const BarRange&) const = default;
};

// The window of one control. The host makes it and calls the control's message entry; the control holds it
// between its creation and its destruction messages.
class Window {
 public:
  virtual ~Window() = default;

  virtual Size clientSize() const = 0;
  // Marks the area (null: the whole client area) for a paint and paints at once.
  virtual void repaint(const Rect* area) = 0;
  virtual void setBorder(WindowBorder border) = 0;
  virtual void setEnabled(bool enabled) = 0;
  virtual void setFocus() = 0;

  virtual void setBarRange(Bar bar, const BarRange& range) = 0;
  virtual void setBarPosition(Bar bar, std::int32_t position) = 0;
  virtual void showBar(Bar bar, bool shown) = 0;
  virtual void enableBar(Bar bar, bool enabled) = 0;
};

}  // namespace tessera
