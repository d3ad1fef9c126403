// A window without a desktop.

#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "backends/raster/raster_canvas.h"
#include "platform/window.h"

namespace tessera {

struct HeadlessBar {
  BarRange range;
  bool shown = false;
  bool enabled = true;
};

// Paints into a canvas of the client size. Scroll bars lie outside the client area, so they never change its
// size. What the control asks of the window can be followed as a list of lines.
class HeadlessWindow : public Window {
 public:
  using Painter = std::function<void(Canvas&)>;

  // Client sides in pixels are brought into 0..maxSide.
  static constexpr std::int32_t maxSide = 16384;

  HeadlessWindow(Size client, Painter painter);

  // A resized window has to be painted anew, which the control does when it is told of the size.
  void resize(Size client);
  // Paints if something has asked for it since the last paint.
  void update();
  // Paints whether or not somebody asked.
  void paint();
  // While on, repaint() only marks the window and update() does the work once.
  void setCoalescing(bool on);

  const RasterCanvas& canvas() const { return *canvas_; }
  const HeadlessBar& bar(Bar which) const { return bars_[static_cast<std::size_t>(which)]; }
  WindowBorder border() const { return border_; }
  bool enabled() const { return enabled_; }
  bool focused() const { return focused_; }
  std::int64_t paintCount() const { return paintCount_; }

  // What was asked of the window since the last call, a line each, in order.
  std::vector<std::string> takeCalls();

  Size clientSize() const override { return canvas_->size(); }
  void repaint(const Rect* area) override;
  void setBorder(WindowBorder border) override;
  void setEnabled(bool enabled) override;
  void setFocus() override;
  void setBarRange(Bar bar, const BarRange& range) override;
  void setBarPosition(Bar bar, std::int32_t position) override;
  void showBar(Bar bar, bool shown) override;
  void enableBar(Bar bar, bool enabled) override;
  std::int32_t trackingPosition(Bar bar) const override { return this->bar(bar).range.position; }
  bool hasFocus() const override { return focused_; }
  void setCapture(bool) override {}
  void setCursor(Cursor) override {}
  Modifiers modifiers() const override { return {}; }
  Point pointer() const override { return {}; }
  Point clientOrigin() const override { return {}; }
  Rect screenRect() const override { return {0, 0, clientSize().width, clientSize().height}; }
  Size screenSize() const override { return {1920, 1080}; }
  std::int32_t wheelLines() const override { return 3; }
  void startTimer(std::int32_t, std::int32_t) override {}
  void stopTimer(std::int32_t) override {}
  std::unique_ptr<EditBox> createEditBox(EditBoxOwner&) override { return nullptr; }
  std::unique_ptr<ListBox> createListBox(ListBoxOwner&) override { return nullptr; }
  InputMethod& inputMethod() override { return inputMethod_; }
  std::int32_t trackPopupMenu(std::span<const PopupMenuItem>, Point) override { return 0; }

 private:
  HeadlessBar& state(Bar which) { return bars_[static_cast<std::size_t>(which)]; }
  void note(std::string call);

  class NoInputMethod : public InputMethod {
    void setNative(bool) override {}
  };

  NoInputMethod inputMethod_;
  Painter painter_;
  std::unique_ptr<RasterCanvas> canvas_;  // never null
  std::array<HeadlessBar, 2> bars_;
  WindowBorder border_ = WindowBorder::None;
  bool enabled_ = true;
  bool focused_ = false;
  bool dirty_ = true;
  bool painting_ = false;
  bool coalescing_ = false;
  std::int64_t paintCount_ = 0;
  std::vector<std::string> calls_;
};

}  // namespace tessera
