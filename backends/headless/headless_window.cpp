#include "backends/headless/headless_window.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace tessera {

namespace {

// A session of days must not fill the memory with calls that nobody takes.
constexpr std::size_t maxCalls = 256;

constexpr std::array<std::string_view, 5> borderNames = {"none", "line", "sunken", "raised", "frame"};

Size boundedSize(Size size) {
  return {std::clamp(size.width, 0, HeadlessWindow::maxSide),
          std::clamp(size.height, 0, HeadlessWindow::maxSide)};
}

std::string barCall(Bar bar, std::string_view what) {
  return std::string(bar == Bar::Horizontal ? "h " : "v ").append(what);
}

}  // namespace

HeadlessWindow::HeadlessWindow(Size client, Painter painter)
    : painter_(std::move(painter)), canvas_(std::make_unique<RasterCanvas>(boundedSize(client))) {}

void HeadlessWindow::resize(Size client) {
  canvas_ = std::make_unique<RasterCanvas>(boundedSize(client));
  dirty_ = true;
}

void HeadlessWindow::update() {
  if (dirty_) paint();
}

// A repaint that the painting itself asks for waits for the next update(): served at once it could go on
// for ever.
void HeadlessWindow::paint() {
  if (painting_) {
    dirty_ = true;
    return;
  }
  painting_ = true;
  dirty_ = false;
  ++paintCount_;
  painter_(*canvas_);
  painting_ = false;
}

void HeadlessWindow::setCoalescing(bool on) {
  coalescing_ = on;
  if (!on) update();
}

std::vector<std::string> HeadlessWindow::takeCalls() { return std::exchange(calls_, {}); }

void HeadlessWindow::note(std::string call) {
  if (calls_.size() < maxCalls) calls_.push_back(std::move(call));
}

void HeadlessWindow::repaint(const Rect*) {
  note("repaint");
  dirty_ = true;
  if (!coalescing_ && !painting_) update();
}

void HeadlessWindow::setBorder(WindowBorder border) {
  border_ = border;
  note(std::string("border ").append(borderNames[static_cast<std::size_t>(border)]));
}

void HeadlessWindow::setEnabled(bool enabled) {
  enabled_ = enabled;
  note(enabled ? "enabled" : "disabled");
}

void HeadlessWindow::setFocus() {
  focused_ = true;
  note("focus");
}

void HeadlessWindow::setBarRange(Bar bar, const BarRange& range) {
  state(bar).range = range;
  note(barCall(bar, "range " + std::to_string(range.minimum) + "-" + std::to_string(range.maximum) +
                        " page " + std::to_string(range.page) + " at " + std::to_string(range.position)));
}

void HeadlessWindow::setBarPosition(Bar bar, std::int32_t position) {
  state(bar).range.position = position;
  note(barCall(bar, "at " + std::to_string(position)));
}

void HeadlessWindow::showBar(Bar bar, bool shown) {
  state(bar).shown = shown;
  note(barCall(bar, shown ? "shown" : "hidden"));
}

void HeadlessWindow::enableBar(Bar bar, bool enabled) {
  state(bar).enabled = enabled;
  note(barCall(bar, enabled ? "enabled" : "disabled"));
}

}  // namespace tessera
