// The window of a control on the desktop.

#pragma once

#include <QHash>
#include <QInputMethodEvent>
#include <QPointer>
#include <memory>
#include <optional>

#include "backends/qt/call_depth.h"
#include "backends/qt/grid_pane.h"
#include "backends/qt/qt_text.h"
#include "backends/qt/window_owner.h"
#include "backends/raster/raster_canvas.h"
#include "platform/window.h"

class QKeyEvent;
class QPainter;

namespace tessera {

class QtEditBox;
class QtListBox;

// Draws into pixels of its own, which Qt then shows. A repaint is served when the input under way has been
// dealt with, so that the next one finds the edit box at its cell; without one, as soon as the program is
// back in the event loop. The pane and the owner are borrowed and outlive the window.
class QtWindow : public Window, private InputMethod {
 public:
  QtWindow(GridPane& pane, WindowOwner& owner, CallDepth& calls);
  ~QtWindow() override;
  QtWindow(const QtWindow&) = delete;
  QtWindow& operator=(const QtWindow&) = delete;

  // Leaves the desktop; calls that are under way end in peace, and nothing comes any more.
  void close();
  void send(std::uint32_t message, std::uint64_t wParam, std::int64_t lParam);

  // What the view tells.
  void show(QPainter& painter);
  void drawRequested();
  void resized();
  void mouse(std::uint32_t message, std::uint64_t held, Point client, Qt::KeyboardModifiers modifiers);
  // In notches, to the right and away from the user.
  void wheel(int across, int along, Point screen, Qt::KeyboardModifiers modifiers);
  // A key of any of the grid's windows; it goes to the one that has the focus then.
  void keyPressed(QKeyEvent& event);
  void composed(const QInputMethodEvent& event);
  void timerFired(int timer);

  // A composition that began at the grid goes over to the edit box. What the input method says meanwhile
  // replaces what it said before.
  bool isHandingOver() const { return handingOver_; }
  void replaceComposition(const QInputMethodEvent& event) { composition_.reset(event.clone()); }
  // Null when there is none.
  std::unique_ptr<QInputMethodEvent> takeComposition();

  GridView& view() { return pane_.view(); }
  CallDepth& calls() { return calls_; }
  // A change of the focus makes the port's callers run.
  void giveFocus(QWidget& widget);
  void adopt(QtEditBox* box) { box_ = box; }
  void adopt(QtListBox* list) { list_ = list; }
  // The open list has lost the focus or was closed.
  void leaveList(ListBoxOwner& owner);
  void abandon(const QtEditBox* box);
  void abandon(const QtListBox* list);

  Size clientSize() const override;
  void repaint(const Rect* area) override;
  void setBorder(WindowBorder border) override { pane_.setBorder(border); }
  void setEnabled(bool enabled) override { pane_.setEnabled(enabled); }
  void setFocus() override { giveFocus(pane_.view()); }
  void setBarRange(Bar bar, const BarRange& range) override;
  void setBarPosition(Bar bar, std::int32_t position) override;
  void showBar(Bar bar, bool shown) override { pane_.showBar(bar, shown); }
  void enableBar(Bar bar, bool enabled) override { pane_.bar(bar).setEnabled(enabled); }
  std::int32_t trackingPosition(Bar bar) const override { return pane_.bar(bar).sliderPosition(); }
  bool hasFocus() const override { return pane_.view().hasFocus(); }
  // Qt gives the mouse to whoever was pressed until the release.
  void setCapture(bool captured) override { captured_ = captured; }
  void setCursor(Cursor cursor) override;
  Modifiers modifiers() const override;
  Point pointer() const override;
  Point clientOrigin() const override;
  Rect screenRect() const override;
  Size screenSize() const override;
  std::int32_t wheelLines() const override;
  void startTimer(std::int32_t id, std::int32_t milliseconds) override;
  void stopTimer(std::int32_t id) override;
  Canvas& canvas() override;
  std::unique_ptr<EditBox> createEditBox(EditBoxOwner& owner) override;
  std::unique_ptr<ListBox> createListBox(ListBoxOwner& owner) override;
  InputMethod& inputMethod() override { return *this; }
  void trackPopupMenu(std::span<const PopupMenuItem> items, Point screen, MenuAnswer chosen) override;

 private:
  class Turn;
  // The pixels of the client area at a device pixel ratio.
  struct Surface {
    std::unique_ptr<Canvas> canvas;
    RasterCanvas* device = nullptr;  // of the canvas
    double ratio = 0;
    Size size;
  };

  void setNative(bool native) override;
  void listenTo(Bar bar);
  void barActed(Bar bar, int action);
  void barReleased(Bar bar);
  void draw();
  void drawNow();
  const std::shared_ptr<Surface>& surface();
  void leave(bool forward);
  bool endsComposition(std::int32_t key);
  void deliverKey(std::int32_t key, QKeyEvent& event);
  void typed(QStringView text);

  GridPane& pane_;
  WindowOwner& owner_;
  CallDepth& calls_;
  QtEditBox* box_ = nullptr;
  QtListBox* list_ = nullptr;
  std::shared_ptr<Surface> surface_;    // a paint keeps the one it began with
  std::optional<Modifiers> modifiers_;  // while an input is being dealt with
  std::unique_ptr<QInputMethodEvent> composition_;
  QHash<std::int32_t, int> timers_;          // Qt's number by the window's
  std::array<std::int32_t, 2> positions_{};  // of the bars, as the grid wants them
  int turns_ = 0;
  bool handingOver_ = false;
  bool captured_ = false;
  bool closed_ = false;
  bool dirty_ = true;
  bool requested_ = false;
  bool leavesList_ = false;
  bool painting_ = false;
};

}  // namespace tessera
