// The window of a control on the headless desktop.

#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "backends/headless/headless_desktop.h"
#include "backends/headless/headless_edit_box.h"
#include "backends/headless/headless_list_box.h"
#include "backends/raster/raster_canvas.h"
#include "platform/window.h"

namespace tessera {

struct HeadlessBar {
  BarRange range;
  bool shown = false;
  bool enabled = true;
};

// Paints into a canvas of the client size, the open edit box and list above it. Scroll bars lie outside the
// client area, so they never change its size. What the control asks of the window can be followed as a list
// of lines.
class HeadlessWindow : public Window, public FocusHolder {
 public:
  using Painter = std::function<void(Canvas&)>;
  // Where the window's messages go: true when they are of use there. It may close and replace the window.
  using MessageTarget = std::function<bool(std::uint32_t message, std::uint64_t wParam, std::int64_t lParam)>;

  // Client sides in pixels are brought into 0..maxSide.
  static constexpr std::int32_t maxSide = 16384;

  // On a desktop of its own when none is given.
  HeadlessWindow(Size client, Painter painter,
                 std::shared_ptr<HeadlessDesktop> desktop = std::make_shared<HeadlessDesktop>());
  ~HeadlessWindow() override;
  HeadlessWindow(const HeadlessWindow&) = delete;
  HeadlessWindow& operator=(const HeadlessWindow&) = delete;

  void setMessageTarget(MessageTarget target) { target_ = std::move(target); }
  // A message arrives; false when nobody takes it.
  bool send(std::uint32_t message, std::uint64_t wParam, std::int64_t lParam);
  // Leaves the desktop, with its timers, the focus and the mouse. Nobody is told, and calls that are under
  // way may end in peace.
  void close();

  // A resized window has to be painted anew, which the control does when it is told of the size.
  void resize(Size client);
  // Paints if something has asked for it since the last paint.
  void update();
  // Paints whether or not somebody asked.
  void paint();
  // While on, repaint() only marks the window and update() does the work once.
  void setCoalescing(bool on);
  // One of the windows above it has changed: the next update() paints. While painting they are yet to come.
  void invalidate() { dirty_ = dirty_ || !painting_; }

  HeadlessDesktop& desktop() { return *desktop_; }
  RasterCanvas& canvas() override { return *canvas_; }
  const RasterCanvas& canvas() const { return *canvas_; }
  const HeadlessBar& bar(Bar which) const { return bars_[static_cast<std::size_t>(which)]; }
  WindowBorder border() const { return border_; }
  bool enabled() const { return enabled_; }
  std::int64_t paintCount() const { return paintCount_; }

  // The children, null while there is none.
  HeadlessEditBox* editBox() const { return editBox_; }
  HeadlessListBox* list() const { return list_; }
  void adopt(HeadlessEditBox* box) { editBox_ = box; }
  void adopt(HeadlessListBox* list) { list_ = list; }
  void abandon(const HeadlessEditBox* box);
  void abandon(const HeadlessListBox* list);

  // What was asked of the window since the last call, a line each, in order.
  std::vector<std::string> takeCalls();

  void focusLost(const FocusHolder* next) override;
  void focusGained() override;

  Size clientSize() const override { return canvas_->size(); }
  void repaint(const Rect* area) override;
  void setBorder(WindowBorder border) override;
  // A window without input cannot have the focus, nor can its children.
  void setEnabled(bool enabled) override;
  void setFocus() override;
  void setBarRange(Bar bar, const BarRange& range) override;
  void setBarPosition(Bar bar, std::int32_t position) override;
  void showBar(Bar bar, bool shown) override;
  void enableBar(Bar bar, bool enabled) override;
  // The place that the last message of the thumb brought; the thumb never leaves its bar.
  std::int32_t trackingPosition(Bar bar) const override;
  bool hasFocus() const override {
    const FocusHolder* holder = desktop_->focus.holder();
    return holder == this || (!holder && desktop_->keysToGrid);
  }
  void setCapture(bool captured) override { desktop_->captured = captured; }
  void setCursor(Cursor cursor) override { desktop_->cursor = cursor; }
  Modifiers modifiers() const override { return desktop_->modifiers; }
  Point pointer() const override { return desktop_->pointer; }
  Point clientOrigin() const override { return {}; }
  Rect screenRect() const override;
  Size screenSize() const override { return HeadlessDesktop::screen; }
  std::int32_t wheelLines() const override { return 3; }
  void startTimer(std::int32_t id, std::int32_t milliseconds) override;
  void stopTimer(std::int32_t id) override { desktop_->timers.stop(id); }
  std::unique_ptr<EditBox> createEditBox(EditBoxOwner& owner) override;
  std::unique_ptr<ListBox> createListBox(ListBoxOwner& owner) override;
  InputMethod& inputMethod() override { return desktop_->inputMethod; }
  void trackPopupMenu(std::span<const PopupMenuItem> items, Point screen, MenuAnswer chosen) override;

 private:
  HeadlessBar& state(Bar which) { return bars_[static_cast<std::size_t>(which)]; }
  void note(std::string call);
  void noteThumb(std::uint32_t message, std::uint64_t wParam);
  void paintChildren(Canvas& canvas) const;

  std::shared_ptr<HeadlessDesktop> desktop_;  // never null
  Painter painter_;
  MessageTarget target_;
  std::shared_ptr<RasterCanvas> canvas_;  // never null; a paint keeps the one it began with
  HeadlessEditBox* editBox_ = nullptr;
  HeadlessListBox* list_ = nullptr;
  std::array<HeadlessBar, 2> bars_;
  std::array<std::int64_t, 2> thumbs_{};  // as the messages said
  WindowBorder border_ = WindowBorder::None;
  bool enabled_ = true;
  bool closed_ = false;
  bool dirty_ = true;
  bool painting_ = false;
  bool coalescing_ = false;
  std::int64_t paintCount_ = 0;
  std::vector<std::string> calls_;
};

}  // namespace tessera
