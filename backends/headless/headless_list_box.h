// The drop-down list of the headless desktop.

#pragma once

#include "backends/headless/keyboard_focus.h"
#include "platform/canvas.h"
#include "platform/lifeline.h"
#include "platform/list_box.h"

namespace tessera {

class HeadlessWindow;

// A window of its own above all others; it reports to the window that made it, which outlives it.
class HeadlessListBox : public ListBox, public FocusHolder {
 public:
  HeadlessListBox(HeadlessWindow& window, ListBoxOwner& owner);
  ~HeadlessListBox() override;
  HeadlessListBox(const HeadlessListBox&) = delete;
  HeadlessListBox& operator=(const HeadlessListBox&) = delete;

  void setItems(std::vector<XString> items) override;
  void choose(std::int32_t index) override;
  std::int32_t chosen() const override { return chosen_; }
  std::int32_t itemHeight() const override;
  void setFont(const LogFont& font) override;
  void place(const Rect& rect) override;
  void show(bool shown) override;
  void setFocus() override;
  bool hasFocus() const override;

  void focusLost(const FocusHolder* next) override;
  void focusGained() override {}

  const std::vector<XString>& items() const { return items_; }
  // In screen pixels; empty while hidden.
  Rect shownAt() const { return shown_ ? rect_ : Rect{}; }

  // What a person does, points in screen pixels. Each may end with the list destroyed.
  void pressKey(std::int32_t key);
  void typeCharacter(char16_t character);
  void mouseDown(Point at);
  void mouseMove(Point at);
  // In items; below 0 back to the start.
  void scroll(std::int32_t items);

  // `origin` is where the canvas begins on the screen.
  void paint(Canvas& canvas, Point origin) const;

 private:
  std::int32_t count() const { return static_cast<std::int32_t>(items_.size()); }
  std::int32_t pageSize() const;
  // -1 below the last item.
  std::int32_t itemAt(Point at) const;
  void processKey(std::int32_t key);
  // The nearest item, which comes into view.
  void goTo(std::int32_t index);
  void setTop(std::int32_t index);
  void changed();

  HeadlessWindow& window_;
  ListBoxOwner& owner_;
  Lifeline life_;
  std::vector<XString> items_;
  std::int32_t chosen_ = -1;
  std::int32_t top_ = 0;  // the first item that is seen
  LogFont font_;
  Rect rect_;
  bool shown_ = false;
};

}  // namespace tessera
