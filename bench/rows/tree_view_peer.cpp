#include <QAbstractItemModel>
#include <QApplication>
#include <QTreeView>

#include "bench/rows/outline_peer.h"

namespace tessera {
namespace {

// Rows are known by their position; 0 is the root.
class OutlineModel : public QAbstractItemModel {
 public:
  explicit OutlineModel(const std::vector<std::int8_t>& levels)
      : children_(levels.size() + 1), places_(levels.size() + 1) {
    std::vector<std::size_t> path{0};
    for (std::size_t id = 1; id <= levels.size(); ++id) {
      path.resize(static_cast<std::size_t>(levels[id - 1]));
      places_[id] = {path.back(), static_cast<int>(children_[path.back()].size())};
      children_[path.back()].push_back(id);
      path.push_back(id);
    }
  }
  QModelIndex index(int row, int column, const QModelIndex& parent) const override {
    return createIndex(row, column, children_[parent.internalId()][static_cast<std::size_t>(row)]);
  }
  QModelIndex parent(const QModelIndex& index) const override {
    const std::size_t above = places_[index.internalId()].parent;
    return above == 0 ? QModelIndex() : createIndex(places_[above].row, 0, above);
  }
  int rowCount(const QModelIndex& parent) const override {
    return static_cast<int>(children_[parent.internalId()].size());
  }
  int columnCount(const QModelIndex&) const override { return 1; }
  QVariant data(const QModelIndex& index, int role) const override {
    return role == Qt::DisplayRole ? QVariant(QString::number(index.internalId())) : QVariant();
  }

 private:
  struct Place {
    std::size_t parent = 0;
    int row = 0;
  };
  std::vector<std::vector<std::size_t>> children_;
  std::vector<Place> places_;
};

class TreeView : public OutlinePeer {
 public:
  explicit TreeView(const std::vector<std::int8_t>& levels) : model_(levels) {
    view_.setUniformRowHeights(true);
    view_.setModel(&model_);
    view_.resize(800, 600);
    view_.show();
    QApplication::processEvents();
  }
  void expandAll() override { view_.expandAll(), QApplication::processEvents(); }
  void collapseAll() override { view_.collapseAll(), QApplication::processEvents(); }
  void toggle() override {
    const QModelIndex row = model_.index(0, 0, model_.index(0, 0, model_.index(0, 0, {})));
    view_.setExpanded(row, !view_.isExpanded(row));
    view_.repaint();
    QApplication::processEvents();
  }

 private:
  int count_ = 1;
  char name_[6] = "bench";
  char* arguments_[2] = {name_, nullptr};
  QApplication application_{count_, arguments_};
  OutlineModel model_;
  QTreeView view_;
};

}  // namespace

std::unique_ptr<OutlinePeer> makeTreeView(std::vector<std::int8_t> levels) {
  return std::make_unique<TreeView>(levels);
}

}  // namespace tessera
