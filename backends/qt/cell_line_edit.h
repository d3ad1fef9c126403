// The line edit that an edit box on the desktop stands on.

#pragma once

#include <QInputMethodEvent>
#include <QLineEdit>

#include "backends/qt/focus_loan.h"

namespace tessera {

class QtEditBox;

// Has the look of an edit window: a sunken edge of two pixels and the text right inside. Keys and composed
// characters go by way of the box, which sends back what the line edit is to do with them.
class CellLineEdit : public QLineEdit {
 public:
  CellLineEdit(QWidget* parent, QtEditBox& box);

  // The box goes away; the widget may be in the midst of an event and stays until the grid's window ends.
  void retire();
  void process(QKeyEvent& event) { QLineEdit::keyPressEvent(&event); }
  void process(QInputMethodEvent& event);
  bool isComposing() const { return composing_; }
  // What is being composed goes without a trace.
  void dropComposition();
  // The box asks for the focus; every other way for it to come is told to the box.
  void takeFocus();

 protected:
  bool event(QEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void loseFocus();

  QtEditBox* box_;  // null after retire()
  FocusLoan loan_{*this};
  bool composing_ = false;
  bool taking_ = false;
};

}  // namespace tessera
