#include <QAbstractTableModel>
#include <QApplication>
#include <QFont>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTableView>
#include <QWheelEvent>

#include "bench/interact/input_peer.h"

namespace tessera {
namespace {

class NumberModel : public QAbstractTableModel {
 public:
  int rowCount(const QModelIndex&) const override { return peerRows; }
  int columnCount(const QModelIndex&) const override { return peerColumns; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole) return {};
    return QString::number((index.row() + 1) * 10 + index.column());
  }
};

class TableViewPeer : public InputPeer {
 public:
  TableViewPeer() {
    view_.setFont(QFont("DejaVu Sans", 9));
    view_.setModel(&model_);
    view_.resize(peerWidth, peerHeight);
    view_.show();
    view_.setCurrentIndex(model_.index(0, 0));
    QApplication::processEvents();
  }

  void keyDown() override { press(Qt::Key_Down); }
  void pageDown() override { press(Qt::Key_PageDown); }
  void thumbTo(std::int32_t row) override {
    view_.verticalScrollBar()->setValue(row - 1);
    settle();
  }
  void wheelNotch() override {
    const QPointF place(100, 100);
    QWheelEvent wheel(place, view_.viewport()->mapToGlobal(place), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view_.viewport(), &wheel);
    settle();
  }
  void repaint() override { view_.viewport()->repaint(); }
  std::int32_t focusRow() const override { return view_.currentIndex().row() + 1; }
  std::int32_t topRow() const override { return view_.rowAt(0) + 1; }

 private:
  void press(Qt::Key key) {
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&view_, &down);
    settle();
  }
  // The view paints when the events are worked off.
  void settle() { QApplication::processEvents(); }

  NumberModel model_;
  QTableView view_;
};

}  // namespace

std::unique_ptr<InputPeer> makeTableViewPeer() { return std::make_unique<TableViewPeer>(); }

}  // namespace tessera
