// A window that remembers what it was told.

#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/window.h"

namespace tessera::test {

class FakeEditBox : public EditBox {
 public:
  explicit FakeEditBox(EditBoxOwner& boxOwner) : owner(boxOwner) {}
  void setText(std::u16string_view text) override { content = text; }
  XString text() const override { return content; }
  void select(std::int32_t start, std::int32_t end) override {
    selectionStart = start;
    selectionEnd = end < 0 ? content.length() : end;
  }
  void selection(std::int32_t& start, std::int32_t& end) const override {
    start = selectionStart;
    end = selectionEnd;
  }
  void setPassword(bool on) override { masked = on; }
  void setLetterCase(LetterCase value) override { letters = value; }
  void setFont(const LogFont& value) override { font = value; }
  void place(const Rect& value) override { rect = value; }
  Rect placement() const override { return rect; }
  void setFocus() override;
  bool hasFocus() const override;
  void sendChar(char16_t character) override { sent.push_back(character); }
  void sendComposition() override { ++compositions; }

  EditBoxOwner& owner;
  class FakeWindow* window = nullptr;
  XString content;
  std::int32_t selectionStart = 0;
  std::int32_t selectionEnd = 0;
  bool masked = false;
  LetterCase letters = LetterCase::AsTyped;
  LogFont font;
  Rect rect;
  std::u16string sent;
  int compositions = 0;
};

class FakeListBox : public ListBox {
 public:
  explicit FakeListBox(ListBoxOwner& boxOwner) : owner(boxOwner) {}
  void setItems(std::vector<XString> values) override { items = std::move(values); }
  void choose(std::int32_t index) override { choice = index; }
  std::int32_t chosen() const override { return choice; }
  std::int32_t itemHeight() const override { return 15; }
  void setFont(const LogFont& value) override { font = value; }
  void place(const Rect& value) override { rect = value; }
  void show(bool on) override { shown = on; }
  void setFocus() override;
  bool hasFocus() const override;

  ListBoxOwner& owner;
  class FakeWindow* window = nullptr;
  std::vector<XString> items;
  std::int32_t choice = -1;
  LogFont font;
  Rect rect;
  bool shown = false;
};

class FakeInputMethod : public InputMethod {
 public:
  void setNative(bool native) override { calls.push_back(native); }
  std::vector<bool> calls;
};

// The keyboard focus moves among the window and its children without telling anybody: a test that wants the
// messages of a focus move sends them itself.
class FakeWindow : public Window {
 public:
  enum class Focus { Elsewhere, Grid, Edit, List };

  Size clientSize() const override { return size; }
  void repaint(const Rect*) override { ++repaints; }
  void setBorder(WindowBorder value) override { border = value; }
  void setEnabled(bool value) override { enabled = value; }
  void setFocus() override {
    ++focusCalls;
    focus = Focus::Grid;
  }
  void setBarRange(Bar bar, const BarRange& range) override { bars[bar] = range; }
  void setBarPosition(Bar bar, std::int32_t position) override { bars[bar].position = position; }
  void showBar(Bar bar, bool value) override { shown[bar] = value; }
  void enableBar(Bar bar, bool value) override { barEnabled[bar] = value; }
  std::int32_t trackingPosition(Bar bar) const override {
    return tracking.contains(bar) ? tracking.at(bar) : 1;
  }
  bool hasFocus() const override { return focus == Focus::Grid; }
  void setCapture(bool value) override { captured = value; }
  void setCursor(Cursor value) override { cursor = value; }
  Modifiers modifiers() const override { return keys; }
  Point pointer() const override { return pointerPlace; }
  Point clientOrigin() const override { return origin; }
  Rect screenRect() const override {
    return {origin.x, origin.y, origin.x + size.width, origin.y + size.height};
  }
  Size screenSize() const override { return screen; }
  std::int32_t wheelLines() const override { return lines; }
  void startTimer(std::int32_t id, std::int32_t milliseconds) override { timers[id] = milliseconds; }
  void stopTimer(std::int32_t id) override { timers.erase(id); }
  Canvas& canvas() override { return *surface; }
  std::unique_ptr<EditBox> createEditBox(EditBoxOwner& owner) override {
    auto box = std::make_unique<FakeEditBox>(owner);
    box->window = this;
    edit = box.get();
    return box;
  }
  std::unique_ptr<ListBox> createListBox(ListBoxOwner& owner) override {
    auto box = std::make_unique<FakeListBox>(owner);
    box->window = this;
    list = box.get();
    return box;
  }
  InputMethod& inputMethod() override { return ime; }
  void trackPopupMenu(std::span<const PopupMenuItem> items, Point place, MenuAnswer chosen) override {
    menu.assign(items.begin(), items.end());
    menuPlace = place;
    chosen(menuAnswer);
  }

  Size size{200, 101};
  int repaints = 0;
  int focusCalls = 0;
  WindowBorder border = WindowBorder::None;
  bool enabled = true;
  std::map<Bar, BarRange> bars;
  std::map<Bar, bool> shown;
  std::map<Bar, bool> barEnabled;
  std::map<Bar, std::int32_t> tracking;
  Focus focus = Focus::Elsewhere;
  bool captured = false;
  Cursor cursor = Cursor::Arrow;
  Modifiers keys;
  Point pointerPlace;
  Point origin{100, 100};
  Size screen{1920, 1080};
  std::int32_t lines = 3;
  std::map<std::int32_t, std::int32_t> timers;
  std::unique_ptr<Canvas> surface;  // set by tests that measure texts
  FakeEditBox* edit = nullptr;      // borrowed from the control that made it
  FakeListBox* list = nullptr;
  FakeInputMethod ime;
  std::vector<PopupMenuItem> menu;
  Point menuPlace;
  std::int32_t menuAnswer = 0;
};

inline void FakeEditBox::setFocus() { window->focus = FakeWindow::Focus::Edit; }
inline bool FakeEditBox::hasFocus() const { return window->focus == FakeWindow::Focus::Edit; }
inline void FakeListBox::setFocus() { window->focus = FakeWindow::Focus::List; }
inline bool FakeListBox::hasFocus() const { return window->focus == FakeWindow::Focus::List; }

}  // namespace tessera::test
