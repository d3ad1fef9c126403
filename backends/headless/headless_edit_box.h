// The edit window of the headless desktop.

#pragma once

#include "backends/headless/edit_line.h"
#include "backends/headless/keyboard_focus.h"
#include "platform/canvas.h"
#include "platform/edit_box.h"
#include "platform/lifeline.h"

namespace tessera {

class HeadlessWindow;

// Lives in the window that made it, which outlives it.
class HeadlessEditBox : public EditBox, public FocusHolder {
 public:
  HeadlessEditBox(HeadlessWindow& window, EditBoxOwner& owner);
  ~HeadlessEditBox() override;
  HeadlessEditBox(const HeadlessEditBox&) = delete;
  HeadlessEditBox& operator=(const HeadlessEditBox&) = delete;

  void setText(std::u16string_view text) override;
  XString text() const override { return XString(std::u16string_view(line_.text())); }
  void select(std::int32_t start, std::int32_t end) override;
  void selection(std::int32_t& start, std::int32_t& end) const override;
  void setPassword(bool masked) override;
  void setLetterCase(LetterCase letters) override { letters_ = letters; }
  void setFont(const LogFont& font) override;
  void place(const Rect& rect) override;
  Rect placement() const override { return rect_; }
  void setFocus() override;
  bool hasFocus() const override;
  void sendChar(char16_t character) override { typeCharacter(character); }
  void sendComposition() override { owner_.editAllowsComposition(); }

  void focusLost(const FocusHolder* next) override;
  void focusGained() override {}

  // What a person does. Each may end with the box destroyed.
  void pressKey(std::int32_t key);
  void typeCharacter(char16_t character);
  void mouseDown(Point client, bool extend);
  void mouseMove(Point client);
  void mouseUp() { dragging_ = false; }
  void mouseDouble(Point client);
  // From the press to the release the box gets the mouse wherever it is.
  bool isDragging() const { return dragging_; }
  // False while it is parked.
  bool isInView() const;

  void paint(Canvas& canvas) const;

 private:
  void processKey(std::int32_t key);
  char16_t inCase(char16_t character) const;
  std::u16string shownText() const;
  Rect textArea() const;
  // How far the text is moved to the left so that the caret is seen.
  std::int32_t scrolled(Canvas& canvas, std::u16string_view shown) const;
  std::int32_t placeAt(std::int32_t x) const;
  void changed();

  HeadlessWindow& window_;
  EditBoxOwner& owner_;
  Lifeline life_;
  EditLine line_;
  bool masked_ = false;
  LetterCase letters_ = LetterCase::AsTyped;
  LogFont font_;
  Rect rect_;
  bool dragging_ = false;
};

}  // namespace tessera
