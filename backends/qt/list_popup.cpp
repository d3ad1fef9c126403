#include "backends/qt/list_popup.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include "backends/qt/qt_list_box.h"
#include "backends/qt/qt_window.h"

namespace tessera {

ListView::ListView(QWidget* parent, QtListBox*& list) : QListWidget(parent), list_(list) {
  setFrameShape(QFrame::NoFrame);
  setMouseTracking(true);
  setUniformItemSizes(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setTextElideMode(Qt::ElideNone);
}

// Keys come first to the grid, Tab included.
bool ListView::event(QEvent* event) {
  if (!list_ || event->type() != QEvent::KeyPress) return QListWidget::event(event);
  list_->window().keyPressed(static_cast<QKeyEvent&>(*event));
  event->accept();
  return true;
}

void ListView::focusOutEvent(QFocusEvent* event) {
  QListWidget::focusOutEvent(event);
  if (list_) list_->left();
}

void ListView::mousePressEvent(QMouseEvent* event) {
  QListWidget::mousePressEvent(event);
  if (list_ && event->button() == Qt::LeftButton) list_->clicked();
}

// The item under the pointer is the chosen one.
void ListView::mouseMoveEvent(QMouseEvent* event) {
  if (QListWidgetItem* const item = itemAt(event->position().toPoint())) setCurrentItem(item);
}

ListPopup::ListPopup(QWidget* parent, QtListBox& list)
    : QFrame(parent, Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint),
      list_(&list),
      view_(new ListView(this, list_)) {
  setFrameStyle(QFrame::Box | QFrame::Plain);
  setLineWidth(1);
  setFocusProxy(view_);
}

void ListPopup::retire() {
  list_ = nullptr;
  hide();
}

void ListPopup::resizeEvent(QResizeEvent*) { view_->setGeometry(contentsRect()); }

void ListPopup::hideEvent(QHideEvent* event) {
  QFrame::hideEvent(event);
  if (list_) list_->left();
}

// Closes at a press elsewhere. Not every platform sends such a press a second time, to whom it was meant for.
void ListPopup::mousePressEvent(QMouseEvent* event) {
  QtWindow* const window =
      list_ && !rect().contains(event->position().toPoint()) ? &list_->window() : nullptr;
  const bool isGrids = window && window->view().holds(event->globalPosition().toPoint());
  setAttribute(Qt::WA_NoMouseReplay, isGrids);
  const QPointer<GridView> view = isGrids ? &window->view() : nullptr;
  QFrame::mousePressEvent(event);
  if (view) view->takeClick(*event);
}

// Of the press that has opened the list.
void ListPopup::mouseReleaseEvent(QMouseEvent* event) {
  QFrame::mouseReleaseEvent(event);
  if (list_ && !rect().contains(event->position().toPoint())) list_->window().view().takeRelease(*event);
}

}  // namespace tessera
