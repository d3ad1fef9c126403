#include "backends/qt/cell_line_edit.h"

#include <QKeyEvent>
#include <QPainter>
#include <QProxyStyle>
#include <limits>

#include "backends/qt/border_rings.h"
#include "backends/qt/qt_edit_box.h"
#include "backends/qt/qt_window.h"

namespace tessera {

namespace {

constexpr int ownMargin = 1;  // QLineEdit keeps two pixels at the sides by itself: one of them is the edge's

// A masked text looks in the editor as it does in its cell.
class MaskStyle : public QProxyStyle {
 public:
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* answer) const override {
    if (hint == SH_LineEdit_PasswordCharacter) return u'*';
    if (hint == SH_LineEdit_PasswordMaskDelay) return 0;
    return QProxyStyle::styleHint(hint, option, widget, answer);
  }
};

}  // namespace

CellLineEdit::CellLineEdit(QWidget* parent, QtEditBox& box) : QLineEdit(parent), box_(&box) {
  auto* const style = new MaskStyle;
  style->setParent(this);
  setStyle(style);
  setFrame(false);
  setTextMargins(ownMargin, 0, ownMargin, 0);
  setMaxLength(std::numeric_limits<int>::max());
  setFocusPolicy(Qt::ClickFocus);
}

void CellLineEdit::retire() {
  box_ = nullptr;
  hide();
  deleteLater();
}

// Keys come first to the grid, Tab included.
bool CellLineEdit::event(QEvent* event) {
  if (!box_ || event->type() != QEvent::KeyPress) return QLineEdit::event(event);
  box_->window().keyPressed(static_cast<QKeyEvent&>(*event));
  event->accept();
  return true;
}

void CellLineEdit::process(QInputMethodEvent& event) {
  composing_ = !event.preeditString().isEmpty();
  QLineEdit::inputMethodEvent(&event);
}

void CellLineEdit::inputMethodEvent(QInputMethodEvent* event) {
  event->accept();
  if (!box_) return;
  QtWindow& window = box_->window();
  if (window.isHandingOver()) return window.replaceComposition(*event);
  box_->composed(*event);
}

void CellLineEdit::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (box_ && event->reason() == Qt::ActiveWindowFocusReason) box_->focusArrived();
}

// A menu above the box only borrows the keys.
void CellLineEdit::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (event->reason() == Qt::PopupFocusReason) return;
  composing_ = false;
  if (box_) box_->focusLost();
}

void CellLineEdit::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  QPainter painter(this);
  paintRings(painter, rect(), rings::sunken);
}

}  // namespace tessera
