// The client area of a grid's window.

#pragma once

#include <QWidget>

#include "backends/qt/focus_loan.h"

namespace tessera {

class QtWindow;

// Turns what Qt tells into the window's messages, and shows the window's pixels. The grid decides what a
// press does to the focus, so Qt gives it by Tab alone.
class GridView : public QWidget {
 public:
  explicit GridView(QWidget* parent);

  // Borrowed; null before and after its life.
  void setWindow(QtWindow* window) { window_ = window; }
  QtWindow* gridWindow() const { return window_; }
  // Moves the focus to the widget after the grid, or before it, whichever of the grid's windows has it. False
  // when nobody else takes it.
  bool leave(bool forward);
  // Whether a place of the screen is the view's.
  bool holds(QPoint screen) const { return rect().contains(mapFromGlobal(screen)); }
  // What another window got of the mouse. Qt forgets who was pressed then, and the release would never come:
  // a press is a whole click.
  void takeClick(const QMouseEvent& event);
  void takeRelease(const QMouseEvent& event);
  // Asks for a redraw as soon as the program is back in the event loop.
  void requestDraw();

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  void loseFocus();
  void sendMouse(std::uint32_t left, std::uint32_t right, QMouseEvent& event);

  QtWindow* window_ = nullptr;
  FocusLoan loan_{*this};
  QPoint wheelRest_;  // less than a notch on each axis
};

}  // namespace tessera
