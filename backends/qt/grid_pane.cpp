#include "backends/qt/grid_pane.h"

#include <QCoreApplication>
#include <QPainter>
#include <QResizeEvent>

#include "backends/qt/border_rings.h"
#include "backends/qt/qt_text.h"

namespace tessera {

namespace {

std::span<const BorderRing> ringsOf(WindowBorder border) {
  switch (border) {
    case WindowBorder::Line:
      return rings::line;
    case WindowBorder::Sunken:
      return rings::sunken;
    case WindowBorder::Raised:
      return rings::raised;
    case WindowBorder::Frame:
      return rings::frame;
    case WindowBorder::None:
      break;
  }
  return {};
}

}  // namespace

GridPane::GridPane(QWidget* parent)
    : QWidget(parent),
      view_(new GridView(this)),
      bars_{new QScrollBar(Qt::Horizontal, this), new QScrollBar(Qt::Vertical, this)} {
  for (QScrollBar* bar : bars_) bar->hide();
}

void GridPane::setBorder(WindowBorder border) {
  if (border == border_) return;
  border_ = border;
  arrange();
  update();
}

void GridPane::showBar(Bar which, bool shown) {
  bool& present = shown_[static_cast<std::size_t>(which)];
  if (shown == present) return;
  present = shown;
  bar(which).setVisible(shown);
  arrange();
  update();
}

// The client area comes last: the grid hears of its new size in the midst of it, and may show or hide a bar.
void GridPane::arrange() {
  const int side = static_cast<int>(ringsOf(border_).size());
  const QRect inner = rect().adjusted(side, side, -side, -side);
  const int right = shown(Bar::Vertical) ? bar(Bar::Vertical).sizeHint().width() : 0;
  const int below = shown(Bar::Horizontal) ? bar(Bar::Horizontal).sizeHint().height() : 0;
  const QSize client = inner.size().expandedTo({right, below}) - QSize(right, below);
  bar(Bar::Vertical).setGeometry(inner.left() + client.width(), inner.top(), right, client.height());
  bar(Bar::Horizontal).setGeometry(inner.left(), inner.top() + client.height(), client.width(), below);
  const QSize before = view_->size();
  view_->setGeometry(QRect(inner.topLeft(), client));
  if (view_->testAttribute(Qt::WA_PendingResizeEvent)) {
    view_->setAttribute(Qt::WA_PendingResizeEvent, false);
    QResizeEvent resized(client, before);
    QCoreApplication::sendEvent(view_, &resized);
  }
}

void GridPane::resizeEvent(QResizeEvent*) { arrange(); }

void GridPane::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), toQColor(tessera::screen().face));
  paintRings(painter, rect(), ringsOf(border_));
}

}  // namespace tessera
