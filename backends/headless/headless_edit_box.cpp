#include "backends/headless/headless_edit_box.h"

#include "backends/headless/child_look.h"
#include "backends/headless/headless_window.h"
#include "platform/key_codes.h"

namespace tessera {

namespace {

constexpr std::int32_t edgeWidth = 2;  // of the sunken edge, on each side
constexpr std::int32_t textGap = 1;    // between the edge and the text

bool isSmallLatin(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7); }
bool isCapitalLatin(char16_t c) { return (c >= u'A' && c <= u'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7); }
constexpr char16_t caseBit = 0x20;

}  // namespace

HeadlessEditBox::HeadlessEditBox(HeadlessWindow& window, EditBoxOwner& owner)
    : window_(window), owner_(owner) {
  window_.adopt(this);
}

HeadlessEditBox::~HeadlessEditBox() {
  window_.desktop().focus.forget(this);
  window_.abandon(this);
}

void HeadlessEditBox::changed() {
  if (isInView()) window_.invalidate();
}

bool HeadlessEditBox::isInView() const {
  const Size client = window_.clientSize();
  return !intersect(rect_, {0, 0, client.width, client.height}).empty();
}

void HeadlessEditBox::setText(std::u16string_view text) {
  line_.setText(text);
  changed();
}

void HeadlessEditBox::select(std::int32_t start, std::int32_t end) {
  line_.select(start, end);
  changed();
}

void HeadlessEditBox::selection(std::int32_t& start, std::int32_t& end) const {
  start = line_.start();
  end = line_.end();
}

void HeadlessEditBox::setPassword(bool masked) {
  masked_ = masked;
  changed();
}

void HeadlessEditBox::setFont(const LogFont& font) {
  font_ = font;
  changed();
}

void HeadlessEditBox::place(const Rect& rect) {
  changed();
  rect_ = rect;
  changed();
}

void HeadlessEditBox::setFocus() {
  if (window_.enabled()) window_.desktop().focus.moveTo(this);
}

bool HeadlessEditBox::hasFocus() const { return window_.desktop().focus.holder() == this; }

void HeadlessEditBox::focusLost(const FocusHolder* next) {
  dragging_ = false;
  changed();
  owner_.editFocusLost(next == &window_ ? FocusTarget::GridWindow : FocusTarget::Elsewhere);
}

void HeadlessEditBox::pressKey(std::int32_t key) {
  const auto life = life_.watch();
  if (owner_.editKeyDown(key) || life.expired()) return;
  processKey(key);
  owner_.editKeyDone(key);
}

void HeadlessEditBox::processKey(std::int32_t key) {
  const bool extend = window_.modifiers().shift;
  switch (key) {
    case key::left:
      line_.stepLeft(extend);
      break;
    case key::right:
      line_.stepRight(extend);
      break;
    case key::home:
      line_.moveTo(0, extend);
      break;
    case key::end:
      line_.moveTo(line_.length(), extend);
      break;
    case key::remove:
      line_.removeAfter();
      break;
    default:
      return;
  }
  changed();
}

// With Ctrl a character is a command, and this box knows none.
void HeadlessEditBox::typeCharacter(char16_t character) {
  if (window_.modifiers().control) return;
  const auto life = life_.watch();
  if (!owner_.editAllows(character) || life.expired()) return;
  if (character == key::backspace) {
    line_.removeBefore();
  } else if (!key::isControl(character)) {
    line_.insert(inCase(character));
  }
  changed();
  owner_.editCharDone(character);
}

char16_t HeadlessEditBox::inCase(char16_t character) const {
  const bool up = letters_ == LetterCase::Upper && isSmallLatin(character);
  const bool down = letters_ == LetterCase::Lower && isCapitalLatin(character);
  return up || down ? static_cast<char16_t>(character ^ caseBit) : character;
}

void HeadlessEditBox::mouseDown(Point client, bool extend) {
  const auto life = life_.watch();
  setFocus();
  if (life.expired()) return;
  line_.moveTo(placeAt(client.x), extend);
  dragging_ = true;
  changed();
}

void HeadlessEditBox::mouseMove(Point client) {
  if (!dragging_) return;
  line_.moveTo(placeAt(client.x), true);
  changed();
}

void HeadlessEditBox::mouseDouble(Point client) {
  line_.selectWord(placeAt(client.x));
  changed();
}

std::u16string HeadlessEditBox::shownText() const {
  return masked_ ? std::u16string(line_.text().size(), u'*') : line_.text();
}

Rect HeadlessEditBox::textArea() const {
  constexpr std::int32_t side = edgeWidth + textGap;
  return {addClamped(rect_.left, side), addClamped(rect_.top, edgeWidth), subClamped(rect_.right, side),
          subClamped(rect_.bottom, edgeWidth)};
}

std::int32_t HeadlessEditBox::scrolled(Canvas& canvas, std::u16string_view shown) const {
  const std::int32_t caret = canvas.textExtent(font_, shown.substr(0, toSize(line_.caret()))).width;
  return std::max(0, caret - std::max(0, textArea().width() - 1));
}

// The place between two characters that is next to `x`.
std::int32_t HeadlessEditBox::placeAt(std::int32_t x) const {
  Canvas& canvas = window_.canvas();
  const std::u16string shown = shownText();
  const std::int32_t wanted = addClamped(subClamped(x, textArea().left), scrolled(canvas, shown));
  std::int32_t left = 0;
  for (std::size_t i = 1; i <= shown.size(); ++i) {
    const std::int32_t right = canvas.textExtent(font_, std::u16string_view(shown).substr(0, i)).width;
    if (wanted < (left + right + 1) / 2) return static_cast<std::int32_t>(i - 1);
    left = right;
  }
  return line_.length();
}

void HeadlessEditBox::paint(Canvas& canvas) const {
  canvas.fill(rect_, child_look::paper);
  canvas.edge(rect_, Edge::SunkenOuter);
  canvas.edge({rect_.left + 1, rect_.top + 1, rect_.right - 1, rect_.bottom - 1}, Edge::SunkenInner);
  const std::u16string shown = shownText();
  const std::u16string_view view = shown;
  const auto widthTo = [&](std::int32_t place) {
    return canvas.textExtent(font_, view.substr(0, toSize(place))).width;
  };
  const Rect area = textArea();
  const std::int32_t height = canvas.textExtent(font_, u"X").height;
  const std::int32_t x = area.left - scrolled(canvas, view);
  const std::int32_t y = area.top + std::max(0, (area.height() - height) / 2);
  canvas.text(area, x, y, font_, child_look::ink, view);
  if (!hasFocus()) return;
  const Rect lineArea{area.left, y, area.right, std::min(y + height, area.bottom)};
  const Rect chosen = intersect(
      lineArea, {x + widthTo(line_.start()), lineArea.top, x + widthTo(line_.end()), lineArea.bottom});
  if (!chosen.empty()) {
    canvas.fill(chosen, child_look::chosenPaper);
    canvas.text(chosen, x, y, font_, child_look::chosenInk, view);
  }
  const std::int32_t caret = x + widthTo(line_.caret());
  canvas.fill(intersect(lineArea, {caret, lineArea.top, caret + 1, lineArea.bottom}), child_look::ink);
}

}  // namespace tessera
