// The line edit that an edit box on the desktop stands on.

#pragma once

#include <QInputMethodEvent>
#include <QLineEdit>

namespace tessera {

class QtEditBox;

// Has the look of an edit window: a sunken edge of two pixels and the text right inside. Keys and composed
// characters go by way of the box, which sends back what the line edit is to do with them.
class CellLineEdit : public QLineEdit {
 public:
  CellLineEdit(QWidget* parent, QtEditBox& box);

  // The box goes away; the widget does so when the events that it is in the midst of are over.
  void retire();
  void process(QKeyEvent& event) { QLineEdit::keyPressEvent(&event); }
  void process(QInputMethodEvent& event);
  bool isComposing() const { return composing_; }

 protected:
  bool event(QEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QtEditBox* box_;  // null after retire()
  bool composing_ = false;
};

}  // namespace tessera
