#include "backends/headless/headless_list_box.h"

#include <algorithm>

#include "backends/headless/child_look.h"
#include "backends/headless/headless_window.h"
#include "platform/key_codes.h"
#include "shared/compare.h"

namespace tessera {

namespace {

constexpr std::int32_t frameWidth = 1;
constexpr std::int32_t textGap = 2;

}  // namespace

HeadlessListBox::HeadlessListBox(HeadlessWindow& window, ListBoxOwner& owner)
    : window_(window), owner_(owner) {
  window_.adopt(this);
}

HeadlessListBox::~HeadlessListBox() {
  window_.desktop().focus.forget(this);
  window_.abandon(this);
}

void HeadlessListBox::changed() {
  if (shown_) window_.invalidate();
}

void HeadlessListBox::setItems(std::vector<XString> items) {
  items_ = std::move(items);
  chosen_ = -1;
  top_ = 0;
  changed();
}

void HeadlessListBox::choose(std::int32_t index) {
  chosen_ = index >= 0 && index < count() ? index : -1;
  setTop(std::max(chosen_, 0));
}

std::int32_t HeadlessListBox::itemHeight() const {
  return std::max(1, window_.canvas().textExtent(font_, u"X").height);
}

void HeadlessListBox::setFont(const LogFont& font) {
  font_ = font;
  changed();
}

void HeadlessListBox::place(const Rect& rect) {
  rect_ = rect;
  changed();
}

// A hidden window cannot keep the focus.
void HeadlessListBox::show(bool shown) {
  changed();
  shown_ = shown;
  changed();
  if (!shown && hasFocus()) window_.desktop().focus.moveTo(nullptr);
}

void HeadlessListBox::setFocus() {
  if (shown_ && window_.enabled()) window_.desktop().focus.moveTo(this);
}

bool HeadlessListBox::hasFocus() const { return window_.desktop().focus.holder() == this; }

void HeadlessListBox::focusLost(const FocusHolder*) { owner_.listFocusLost(); }

std::int32_t HeadlessListBox::pageSize() const {
  return std::max(1, (rect_.height() - 2 * frameWidth) / itemHeight());
}

std::int32_t HeadlessListBox::itemAt(Point at) const {
  const std::int32_t index = top_ + std::max(0, at.y - rect_.top - frameWidth) / itemHeight();
  return index < count() ? index : -1;
}

void HeadlessListBox::setTop(std::int32_t index) {
  top_ = std::clamp(index, 0, std::max(0, count() - pageSize()));
  changed();
}

void HeadlessListBox::goTo(std::int32_t index) {
  if (items_.empty()) return;
  chosen_ = std::clamp(index, 0, count() - 1);
  setTop(std::clamp(top_, chosen_ - pageSize() + 1, chosen_));
}

void HeadlessListBox::pressKey(std::int32_t key) {
  const auto life = life_.watch();
  owner_.listKeyDown(key);
  if (life.expired()) return;
  processKey(key);
  owner_.listKeyDone(key);
}

void HeadlessListBox::processKey(std::int32_t key) {
  const std::int32_t page = pageSize();
  switch (key) {
    case key::up:
    case key::left:
      return goTo(chosen_ - 1);
    case key::down:
    case key::right:
      return goTo(chosen_ + 1);
    case key::pageUp:
      return goTo(chosen_ - page + 1 - (page == 1 ? 1 : 0));
    case key::pageDown:
      return goTo(std::max(chosen_, 0) + page - 1 + (page == 1 ? 1 : 0));
    case key::home:
      return goTo(0);
    case key::end:
      return goTo(count() - 1);
    default:
      return;
  }
}

// The next item behind the chosen one that begins with the character, from the last one on to the first.
void HeadlessListBox::typeCharacter(char16_t character) {
  const std::u16string_view wanted(&character, 1);
  for (std::int32_t step = 1; step <= count(); ++step) {
    const std::int32_t index = (chosen_ + step) % count();
    if (!equalNoCase(items_[toSize(index)].view().substr(0, 1), wanted)) continue;
    goTo(index);
    break;
  }
  owner_.listCharDone(character);
}

void HeadlessListBox::mouseDown(Point at) {
  if (const std::int32_t index = itemAt(at); index >= 0) goTo(index);
  owner_.listClicked();
}

void HeadlessListBox::mouseMove(Point at) {
  if (const std::int32_t index = itemAt(at); index >= 0) goTo(index);
}

void HeadlessListBox::scroll(std::int32_t items) { setTop(addClamped(top_, items)); }

void HeadlessListBox::paint(Canvas& canvas, Point origin) const {
  const Rect area{rect_.left - origin.x, rect_.top - origin.y, rect_.right - origin.x,
                  rect_.bottom - origin.y};
  canvas.fill(area, child_look::frame);
  const Rect inner{area.left + frameWidth, area.top + frameWidth, area.right - frameWidth,
                   area.bottom - frameWidth};
  canvas.fill(inner, child_look::paper);
  const std::int32_t height = itemHeight();
  std::int32_t y = inner.top;
  for (std::int32_t index = top_; index < count() && y < inner.bottom; ++index, y += height) {
    const Rect row = intersect(inner, {inner.left, y, inner.right, y + height});
    const bool isChosen = index == chosen_;
    if (isChosen) canvas.fill(row, child_look::chosenPaper);
    canvas.text(row, row.left + textGap, y, font_, isChosen ? child_look::chosenInk : child_look::ink,
                items_[toSize(index)]);
  }
}

}  // namespace tessera
