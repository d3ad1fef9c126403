#include "backends/qt/cell_line_edit.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QProxyStyle>
#include <algorithm>
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

template <class Row, class Value>
bool isIn(const Row& row, Value value) {
  return std::ranges::find(row, value) != std::end(row);
}

// Keys that end the edit, that the grid takes from it, and that erase words: no shortcut of the program may
// take them. A line edit claims the others that it serves by itself.
bool isEdits(const QKeyEvent& event) {
  constexpr int ends[] = {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter};
  constexpr int walks[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown};
  constexpr QKeySequence::StandardKey erases[] = {
      QKeySequence::DeleteEndOfWord, QKeySequence::DeleteStartOfWord, QKeySequence::DeleteCompleteLine};
  const bool alt = event.modifiers() & Qt::AltModifier;
  const bool control = event.modifiers() & Qt::ControlModifier;
  if (!alt && (isIn(walks, event.key()) || (!control && isIn(ends, event.key())))) return true;
  return std::ranges::any_of(erases, [&](QKeySequence::StandardKey key) { return event.matches(key); });
}

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
  loan_.end();
  hide();
}

// Keys come first to the grid, Tab included.
bool CellLineEdit::event(QEvent* event) {
  if (box_ && event->type() == QEvent::KeyPress) {
    box_->window().keyPressed(static_cast<QKeyEvent&>(*event));
    event->accept();
    return true;
  }
  const bool done = QLineEdit::event(event);
  if (event->type() == QEvent::ShortcutOverride && isEdits(static_cast<QKeyEvent&>(*event))) {
    event->accept();
  }
  return done;
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

void CellLineEdit::dropComposition() {
  QGuiApplication::inputMethod()->reset();
  QInputMethodEvent nothing;
  process(nothing);
}

void CellLineEdit::takeFocus() {
  const QPointer<CellLineEdit> self(this);
  taking_ = true;
  setFocus(Qt::OtherFocusReason);
  if (self) taking_ = false;
}

void CellLineEdit::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (box_ && !taking_) box_->focusArrived();
}

// What borrows the keys leaves the selection as it is.
void CellLineEdit::focusOutEvent(QFocusEvent* event) {
  if (event->reason() != Qt::PopupFocusReason) composing_ = false;
  if (!loan_.begins(*event, [this] { loseFocus(); })) {
    QLineEdit::focusOutEvent(event);
    return loseFocus();
  }
  QFocusEvent lent(QEvent::FocusOut, Qt::PopupFocusReason);
  QLineEdit::focusOutEvent(&lent);
}

void CellLineEdit::loseFocus() {
  if (box_) box_->focusLost();
}

void CellLineEdit::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  QPainter painter(this);
  paintRings(painter, rect(), rings::sunken);
}

}  // namespace tessera
