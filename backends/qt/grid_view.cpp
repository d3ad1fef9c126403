#include "backends/qt/grid_view.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QTimerEvent>
#include <QWheelEvent>
#include <cstdlib>

#include "backends/qt/key_codes.h"
#include "backends/qt/qt_window.h"
#include "platform/messages.h"

namespace tessera {

namespace {

QEvent::Type drawRequest() {
  static const int type = QEvent::registerEventType();
  return static_cast<QEvent::Type>(type);
}

std::uint64_t heldWith(const QMouseEvent& event) {
  std::uint64_t words = 0;
  if (event.buttons() & Qt::LeftButton) words |= held::left;
  if (event.buttons() & Qt::RightButton) words |= held::right;
  if (event.modifiers() & Qt::ShiftModifier) words |= held::shift;
  if (event.modifiers() & Qt::ControlModifier) words |= held::control;
  return words;
}

// Keys that no shortcut of the program may take while the grid has the focus.
bool isGridsOwn(const QKeyEvent& event) {
  if (event.modifiers() & Qt::AltModifier) return false;
  const std::int32_t code = keyCode(event);
  if (code >= key::pageUp && code <= key::down) return true;
  return event.modifiers() == Qt::ControlModifier && (code == key::c || code == key::v);
}

}  // namespace

GridView::GridView(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::TabFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_InputMethodEnabled);
}

// The edit box follows the view in the chain of focus, wherever the dialog has put that; leaving it must not
// end at the view.
bool GridView::leave(bool forward) {
  QWidget* const holder = window()->focusWidget();
  if (holder && holder != this && isAncestorOf(holder)) setTabOrder(this, holder);
  const Qt::FocusPolicy policy = focusPolicy();
  setFocusPolicy(Qt::NoFocus);
  const bool left = focusNextPrevChild(forward);
  setFocusPolicy(policy);
  return left;
}

void GridView::requestDraw() { QCoreApplication::postEvent(this, new QEvent(drawRequest())); }

// Keys come first to the grid, Tab included.
bool GridView::event(QEvent* event) {
  if (!window_) return QWidget::event(event);
  if (event->type() == drawRequest()) {
    window_->drawRequested();
    return true;
  }
  switch (event->type()) {
    case QEvent::KeyPress:
      window_->keyPressed(static_cast<QKeyEvent&>(*event));
      return true;
    case QEvent::ShortcutOverride:
      if (isGridsOwn(static_cast<QKeyEvent&>(*event))) event->accept();
      return true;
    case QEvent::FocusAboutToChange:
      // A composition that is being handed to the edit box goes on there.
      return window_->isHandingOver() || QWidget::event(event);
    default:
      return QWidget::event(event);
  }
}

void GridView::paintEvent(QPaintEvent*) {
  if (!window_) return;
  QPainter painter(this);
  window_->show(painter);
}

void GridView::resizeEvent(QResizeEvent*) {
  if (window_) window_->resized();
}

void GridView::focusInEvent(QFocusEvent*) {
  if (window_) window_->send(message::setFocus, 0, 0);
}

void GridView::focusOutEvent(QFocusEvent* event) {
  if (!loan_.begins(*event, [this] { loseFocus(); })) loseFocus();
}

void GridView::loseFocus() {
  if (window_) window_->send(message::killFocus, 0, 0);
}

void GridView::sendMouse(std::uint32_t left, std::uint32_t right, QMouseEvent& event) {
  const bool isLeft = event.button() == Qt::LeftButton;
  if (!window_ || (!isLeft && event.button() != Qt::RightButton)) return event.ignore();
  window_->mouse(isLeft ? left : right, heldWith(event), toPoint(event.position().toPoint()),
                 event.modifiers());
}

void GridView::mousePressEvent(QMouseEvent* event) {
  sendMouse(message::leftDown, message::rightDown, *event);
}

void GridView::mouseReleaseEvent(QMouseEvent* event) { sendMouse(message::leftUp, message::rightUp, *event); }

void GridView::takeClick(const QMouseEvent& event) {
  QMouseEvent own(event.type(), mapFromGlobal(event.globalPosition()), event.globalPosition(), event.button(),
                  event.buttons(), event.modifiers());
  mousePressEvent(&own);
  takeRelease(event);
}

void GridView::takeRelease(const QMouseEvent& event) {
  QMouseEvent own(event.type(), mapFromGlobal(event.globalPosition()), event.globalPosition(), event.button(),
                  event.buttons(), event.modifiers());
  mouseReleaseEvent(&own);
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
  sendMouse(message::leftDouble, message::rightDouble, *event);
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
  if (!window_) return;
  window_->mouse(message::mouseMove, heldWith(*event), toPoint(event->position().toPoint()),
                 event->modifiers());
}

// Fine wheels turn by parts of a notch. Shift turns the wheel sideways.
void GridView::wheelEvent(QWheelEvent* event) {
  if (!window_) return;
  event->accept();
  const bool sideways = event->modifiers() & Qt::ShiftModifier;
  const QPoint turned = event->angleDelta();
  wheelRest_ += sideways ? QPoint(turned.x() + turned.y(), 0) : turned;
  const QPoint whole(wheelRest_.x() / wheelNotch, wheelRest_.y() / wheelNotch);
  wheelRest_ -= whole * wheelNotch;
  const Point at = toPoint(event->globalPosition().toPoint());
  window_->wheel(whole.x(), whole.y(), at, event->modifiers());
}

void GridView::inputMethodEvent(QInputMethodEvent* event) {
  event->accept();
  if (window_) window_->composed(*event);
}

void GridView::timerEvent(QTimerEvent* event) {
  if (window_) window_->timerFired(event->timerId());
}

}  // namespace tessera
