#include "backends/qt/grid_accessible.h"

#include <QAccessibleWidget>

#include <tessera/tessera_widget.h>

#include "backends/qt/grid_view.h"

namespace tessera {

namespace {

TesseraWidget* gridAround(QWidget* widget) {
  for (; widget; widget = widget->parentWidget()) {
    if (auto* const grid = qobject_cast<TesseraWidget*>(widget)) return grid;
  }
  return nullptr;
}

class FocusCellAccessible : public QAccessibleWidget {
 public:
  explicit FocusCellAccessible(GridView* view) : QAccessibleWidget(view, QAccessible::Cell) {}

  QString text(QAccessible::Text kind) const override {
    constexpr int dataCell = 3;
    const TesseraWidget* const grid = gridAround(widget());
    if (kind != QAccessible::Name || !grid) return QAccessibleWidget::text(kind);
    return grid->getText(grid->columnPosition(), grid->rowPosition(), dataCell);
  }
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
  if (auto* const view = dynamic_cast<GridView*>(object)) return new FocusCellAccessible(view);
  if (auto* const grid = qobject_cast<TesseraWidget*>(object)) {
    return new QAccessibleWidget(grid, QAccessible::Table);
  }
  return nullptr;
}

}  // namespace

void installGridAccessibility() {
  static const bool once = (QAccessible::installFactory(makeInterface), true);
  static_cast<void>(once);
}

void announceCell(GridView& view) {
  if (!QAccessible::isActive()) return;
  QAccessibleEvent changed(&view, QAccessible::NameChanged);
  QAccessible::updateAccessibility(&changed);
}

}  // namespace tessera
