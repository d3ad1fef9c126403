// The edit window on the desktop.

#pragma once

#include <QPointer>

#include "platform/edit_box.h"
#include "platform/lifeline.h"

class QInputMethodEvent;
class QKeyEvent;

namespace tessera {

class CellLineEdit;
class QtWindow;

// A QLineEdit above the view. The window that made it outlives it.
class QtEditBox : public EditBox {
 public:
  QtEditBox(QtWindow& window, EditBoxOwner& owner);
  ~QtEditBox() override;
  QtEditBox(const QtEditBox&) = delete;
  QtEditBox& operator=(const QtEditBox&) = delete;

  void setText(std::u16string_view text) override;
  XString text() const override;
  void select(std::int32_t start, std::int32_t end) override;
  void selection(std::int32_t& start, std::int32_t& end) const override;
  void setPassword(bool masked) override;
  void setLetterCase(LetterCase letters) override { letters_ = letters; }
  void setFont(const LogFont& font) override;
  void place(const Rect& rect) override;
  Rect placement() const override { return rect_; }
  void setFocus() override;
  bool hasFocus() const override;
  void sendChar(char16_t character) override;
  void sendComposition() override;

  void setHints(Qt::InputMethodHints hints);
  bool isComposing() const;
  void dropComposition();

  // What a person does; each may end with the box destroyed. `entersText`: the key's text goes in.
  void pressKey(std::int32_t key, QKeyEvent& event, bool entersText);
  void type(QStringView text);
  void composed(const QInputMethodEvent& event);
  void focusArrived();
  void focusLost();
  QtWindow& window() { return window_; }

 private:
  bool allowed(char16_t character);
  void replace(const QInputMethodEvent& event);
  QString inCase(QStringView text) const;

  QtWindow& window_;
  EditBoxOwner& owner_;
  Lifeline life_;
  QPointer<CellLineEdit> line_;
  LetterCase letters_ = LetterCase::AsTyped;
  Rect rect_;
};

}  // namespace tessera
