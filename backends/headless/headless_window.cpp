#include "backends/headless/headless_window.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/messages.h"
#include "shared/scoped_flag.h"

namespace tessera {

namespace {

// A session of days must not fill the memory with calls that nobody takes.
constexpr std::size_t maxCalls = 256;

struct BorderLook {
  std::string_view name;
  std::int32_t width;  // pixels on each side
};
constexpr std::array<BorderLook, 5> borders = {
    {{"none", 0}, {"line", 1}, {"sunken", 2}, {"raised", 2}, {"frame", 3}}};

const BorderLook& lookOf(WindowBorder border) { return borders[static_cast<std::size_t>(border)]; }

constexpr std::int32_t barThickness = 17;

Size boundedSize(Size size) {
  return {std::clamp(size.width, 0, HeadlessWindow::maxSide),
          std::clamp(size.height, 0, HeadlessWindow::maxSide)};
}

std::string barCall(Bar bar, std::string_view what) {
  return std::string(bar == Bar::Horizontal ? "h " : "v ").append(what);
}

}  // namespace

HeadlessWindow::HeadlessWindow(Size client, Painter painter, std::shared_ptr<HeadlessDesktop> desktop)
    : desktop_(std::move(desktop)),
      painter_(std::move(painter)),
      canvas_(std::make_shared<RasterCanvas>(boundedSize(client))) {
  desktop_->window = this;
}

HeadlessWindow::~HeadlessWindow() { close(); }

void HeadlessWindow::close() {
  if (closed_) return;
  closed_ = true;
  desktop_->focus.forget(this);
  desktop_->captured = false;
  desktop_->timers.stopAll();
  if (desktop_->window == this) desktop_->window = nullptr;
}

bool HeadlessWindow::send(std::uint32_t message, std::uint64_t wParam, std::int64_t lParam) {
  if (closed_) return false;
  noteThumb(message, wParam);
  return target_ && target_(message, wParam, lParam);
}

void HeadlessWindow::noteThumb(std::uint32_t message, std::uint64_t wParam) {
  if (message != message::hscroll && message != message::vscroll) return;
  const std::uint64_t code = wParam & 0xFFFF;
  if (code != scroll_code::thumbPosition && code != scroll_code::thumbTrack) return;
  thumbs_[message - message::hscroll] = static_cast<std::int64_t>(wParam >> 16);
}

std::int32_t HeadlessWindow::trackingPosition(Bar bar) const {
  const BarRange& range = this->bar(bar).range;
  const std::int64_t last = std::int64_t{range.maximum} - std::max(range.page - 1, 0);
  const std::int64_t thumb = thumbs_[static_cast<std::size_t>(bar)];
  return clampToInt(std::max<std::int64_t>(std::min(thumb, last), range.minimum));
}

void HeadlessWindow::focusGained() { send(message::setFocus, 0, 0); }

void HeadlessWindow::focusLost(const FocusHolder*) { send(message::killFocus, 0, 0); }

void HeadlessWindow::abandon(const HeadlessEditBox* box) {
  if (editBox_ == box) editBox_ = nullptr;
}

void HeadlessWindow::abandon(const HeadlessListBox* list) {
  if (list_ == list) list_ = nullptr;
}

std::unique_ptr<EditBox> HeadlessWindow::createEditBox(EditBoxOwner& owner) {
  return std::make_unique<HeadlessEditBox>(*this, owner);
}

std::unique_ptr<ListBox> HeadlessWindow::createListBox(ListBoxOwner& owner) {
  return std::make_unique<HeadlessListBox>(*this, owner);
}

void HeadlessWindow::startTimer(std::int32_t id, std::int32_t milliseconds) {
  if (!closed_) desktop_->timers.start(id, milliseconds);
}

void HeadlessWindow::trackPopupMenu(std::span<const PopupMenuItem> items, Point, MenuAnswer chosen) {
  chosen(desktop_->menus.track(items));
}

Rect HeadlessWindow::screenRect() const {
  const Point origin = clientOrigin();
  const std::int32_t border = lookOf(border_).width;
  const auto room = [this, border](Bar which) { return border + (bar(which).shown ? barThickness : 0); };
  return {origin.x - border, origin.y - border, origin.x + clientSize().width + room(Bar::Vertical),
          origin.y + clientSize().height + room(Bar::Horizontal)};
}

void HeadlessWindow::resize(Size client) {
  canvas_ = std::make_shared<RasterCanvas>(boundedSize(client));
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
  const ScopedFlag painting(painting_);
  dirty_ = false;
  ++paintCount_;
  const std::shared_ptr<RasterCanvas> canvas = canvas_;
  painter_(*canvas);
  paintChildren(*canvas);
}

void HeadlessWindow::paintChildren(Canvas& canvas) const {
  if (editBox_ && editBox_->isInView()) editBox_->paint(canvas);
  if (list_ && !list_->shownAt().empty()) list_->paint(canvas, clientOrigin());
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
  note(std::string("border ").append(lookOf(border).name));
}

void HeadlessWindow::setEnabled(bool enabled) {
  enabled_ = enabled;
  note(enabled ? "enabled" : "disabled");
  const FocusHolder* const holder = desktop_->focus.holder();
  if (!enabled && (holder == this || holder == editBox_ || holder == list_)) desktop_->focus.moveTo(nullptr);
}

void HeadlessWindow::setFocus() {
  note("focus");
  if (enabled_ && !closed_) desktop_->focus.moveTo(this);
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
