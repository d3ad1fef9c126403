// The window port.

#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "platform/canvas.h"
#include "platform/edit_box.h"
#include "platform/input_method.h"
#include "platform/list_box.h"
#include "platform/popup_menu.h"
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

// Numbers are the platform's cursor numbers.
enum class Cursor : std::int32_t {
  Arrow = 32512,
  Beam = 32513,
  Wait = 32514,
  Cross = 32515,
  SizeWE = 32644,
  SizeAll = 32646,
  No = 32648,
  Hand = 32649,
  Starting = 32650,
  Help = 32651,
};

struct Modifiers {
  bool control = false;
  bool shift = false;
};

// The window of one control. It makes what has a place in it and ends with it, and takes no further ports.
// The host makes it and calls the control's message entry; the control holds it between its creation and its
// destruction messages.
class Window {
 public:
  virtual ~Window() = default;

  virtual Size clientSize() const = 0;
  // Marks the area (null: the whole client area) for a paint. The paint comes before the window takes its
  // next input, at the latest; never from inside a paint.
  virtual void repaint(const Rect* area) = 0;
  virtual void setBorder(WindowBorder border) = 0;
  virtual void setEnabled(bool enabled) = 0;
  virtual void setFocus() = 0;

  virtual void setBarRange(Bar bar, const BarRange& range) = 0;
  virtual void setBarPosition(Bar bar, std::int32_t position) = 0;
  virtual void showBar(Bar bar, bool shown) = 0;
  virtual void enableBar(Bar bar, bool enabled) = 0;
  // Where the thumb stands while it is dragged.
  virtual std::int32_t trackingPosition(Bar bar) const = 0;

  // Whether this window itself has the keyboard focus; its edit and list windows are others.
  virtual bool hasFocus() const = 0;
  virtual void setCapture(bool captured) = 0;
  virtual void setCursor(Cursor cursor) = 0;
  virtual Modifiers modifiers() const = 0;
  // Pointer, origin of the client area, the whole window with its border, all in screen pixels.
  virtual Point pointer() const = 0;
  virtual Point clientOrigin() const = 0;
  virtual Rect screenRect() const = 0;
  virtual Size screenSize() const = 0;
  // Lines that one notch of the wheel moves.
  virtual std::int32_t wheelLines() const = 0;

  // A timer sends the timer message every `milliseconds` until it is stopped; starting it again sets it anew.
  virtual void startTimer(std::int32_t id, std::int32_t milliseconds) = 0;
  virtual void stopTimer(std::int32_t id) = 0;

  // A canvas of the window's kind, for measuring texts.
  virtual Canvas& canvas() = 0;

  // The owner is borrowed and outlives the child. Null when the platform cannot make one.
  virtual std::unique_ptr<EditBox> createEditBox(EditBoxOwner& owner) = 0;
  virtual std::unique_ptr<ListBox> createListBox(ListBoxOwner& owner) = 0;
  virtual InputMethod& inputMethod() = 0;
  // Shows a menu at a screen point; the items are borrowed for the call. `chosen` gets the code of the item
  // that was picked, 0 for none: before the call returns, or later, but never after the window's end.
  virtual void trackPopupMenu(std::span<const PopupMenuItem> items, Point screen, MenuAnswer chosen) = 0;
};

}  // namespace tessera
