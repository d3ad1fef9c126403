#include "backends/headless/headless_input.h"

#include "backends/headless/headless_window.h"
#include "platform/key_codes.h"
#include "platform/messages.h"

namespace tessera {

namespace {

constexpr std::int64_t overClient = 1;

std::uint64_t heldWith(MouseAction action, Modifiers modifiers) {
  const bool left = action == MouseAction::LeftDown || action == MouseAction::LeftDouble;
  const bool right = action == MouseAction::RightDown || action == MouseAction::RightDouble;
  return (left ? held::left : 0) | (right ? held::right : 0) | (modifiers.shift ? held::shift : 0) |
         (modifiers.control ? held::control : 0);
}

class HeldKeys {
 public:
  HeldKeys(Modifiers& present, Modifiers held) : present_(present), saved_(present) { present = held; }
  ~HeldKeys() { present_ = saved_; }
  HeldKeys(const HeldKeys&) = delete;
  HeldKeys& operator=(const HeldKeys&) = delete;

 private:
  Modifiers& present_;
  Modifiers saved_;
};

// While no window has the focus, a key that somebody sends all the same is the grid's: a script need not care
// for the focus. The grid is not told that it has it.
class KeysToGrid {
 public:
  explicit KeysToGrid(HeadlessDesktop& desktop) : desktop_(desktop), saved_(desktop.keysToGrid) {
    desktop_.keysToGrid = !desktop_.focus.holder();
  }
  ~KeysToGrid() { desktop_.keysToGrid = saved_; }
  KeysToGrid(const KeysToGrid&) = delete;
  KeysToGrid& operator=(const KeysToGrid&) = delete;

 private:
  HeadlessDesktop& desktop_;
  bool saved_;
};

}  // namespace

HeadlessListBox* HeadlessInput::listUnderPointer() const {
  HeadlessListBox* const list = desktop_.window->list();
  return list && list->shownAt().holds(desktop_.pointer.x, desktop_.pointer.y) ? list : nullptr;
}

void HeadlessInput::mouse(MouseAction action, Point client, Modifiers modifiers) {
  const HeldKeys held(desktop_.modifiers, modifiers);
  if (!desktop_.window) return;
  const Point origin = desktop_.window->clientOrigin();
  desktop_.pointer = {addClamped(client.x, origin.x), addClamped(client.y, origin.y)};
  if (desktop_.captured) return mouseToGrid(action, client);
  if (mouseToList(action) || !desktop_.window->enabled() || mouseToBox(action, client)) return;
  mouseToGrid(action, client);
}

bool HeadlessInput::mouseToList(MouseAction action) {
  HeadlessListBox* const list = listUnderPointer();
  if (!list) return false;
  desktop_.cursor = Cursor::Arrow;
  if (action == MouseAction::Move) list->mouseMove(desktop_.pointer);
  if (action == MouseAction::LeftDown) list->mouseDown(desktop_.pointer);
  return true;
}

bool HeadlessInput::mouseToBox(MouseAction action, Point client) {
  HeadlessEditBox* const box = desktop_.window->editBox();
  if (!box || (!box->isDragging() && !box->placement().holds(client.x, client.y))) return false;
  desktop_.cursor = Cursor::Beam;
  if (action == MouseAction::Move) box->mouseMove(client);
  if (action == MouseAction::LeftDown) box->mouseDown(client, desktop_.modifiers.shift);
  if (action == MouseAction::LeftUp) box->mouseUp();
  if (action == MouseAction::LeftDouble) box->mouseDouble(client);
  return true;
}

void HeadlessInput::mouseToGrid(MouseAction action, Point client) {
  const auto number = static_cast<std::uint32_t>(action);
  if (!desktop_.captured) {
    desktop_.window->send(message::setCursor, 0, static_cast<std::int64_t>(number) << 16 | overClient);
  }
  if (!desktop_.window) return;
  desktop_.window->send(number, heldWith(action, desktop_.modifiers), packedPoint(client));
}

// The wheel belongs to the window with the focus, which for the grid's children is the grid.
void HeadlessInput::wheel(Point client, std::int32_t delta) {
  if (!desktop_.window) return;
  const Point origin = desktop_.window->clientOrigin();
  desktop_.pointer = {addClamped(client.x, origin.x), addClamped(client.y, origin.y)};
  if (HeadlessListBox* list = listUnderPointer()) {
    return list->scroll(mulClamped(subClamped(0, delta) / wheelNotch, desktop_.window->wheelLines()));
  }
  if (!desktop_.window->enabled()) return;
  const auto word = static_cast<std::uint32_t>(delta) << 16;
  desktop_.window->send(message::wheel, word, packedPoint(desktop_.pointer));
}

void HeadlessInput::key(std::int32_t key, Modifiers modifiers) {
  const HeldKeys held(desktop_.modifiers, modifiers);
  if (!desktop_.window || (!hasFocus() && !desktop_.window->enabled())) return;
  const KeysToGrid toGrid(desktop_);
  std::int32_t sent = key;
  if (filter_ && !filter_(sent)) return;
  pressKey(sent);
  HeadlessWindow* const window = desktop_.window;
  if (!window) return;
  HeadlessEditBox* const box = window->editBox();
  if (sent == key::backspace && box && box->hasFocus()) box->typeCharacter(key::backspace);
  if (desktop_.window && desktop_.window->hasFocus()) {
    desktop_.window->send(message::keyUp, static_cast<std::uint32_t>(key), 0);
  }
}

void HeadlessInput::pressKey(std::int32_t key) {
  HeadlessWindow* const window = desktop_.window;
  if (!window) return;
  if (window->hasFocus()) {
    window->send(message::keyDown, static_cast<std::uint32_t>(key), 0);
  } else if (window->editBox() && window->editBox()->hasFocus()) {
    window->editBox()->pressKey(key);
  } else if (window->list() && window->list()->hasFocus()) {
    window->list()->pressKey(key);
  }
}

void HeadlessInput::character(char16_t character) {
  HeadlessWindow* const window = desktop_.window;
  if (!window) return;
  if (window->hasFocus()) {
    window->send(message::character, character, 0);
  } else if (window->editBox() && window->editBox()->hasFocus()) {
    window->editBox()->typeCharacter(character);
  } else if (window->list() && window->list()->hasFocus()) {
    window->list()->typeCharacter(character);
  }
}

void HeadlessInput::focusIn() {
  if (desktop_.window) desktop_.window->setFocus();
}

void HeadlessInput::letPass(std::int64_t milliseconds) {
  desktop_.timers.pass(milliseconds, [this](std::int32_t id) {
    if (desktop_.window) desktop_.window->send(message::timer, static_cast<std::uint32_t>(id), 0);
  });
}

}  // namespace tessera
