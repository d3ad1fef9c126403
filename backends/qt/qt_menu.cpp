#include "backends/qt/qt_menu.h"

#include <QMenu>

#include "backends/qt/qt_text.h"

namespace tessera {

namespace {

void fill(QMenu& menu, std::span<const PopupMenuItem> items) {
  for (const PopupMenuItem& item : items) {
    if (item.separator) {
      menu.addSeparator();
    } else if (!item.children.empty()) {
      fill(*menu.addMenu(toQString(item.text)), item.children);
    } else {
      QAction* const action = menu.addAction(toQString(item.text));
      action->setEnabled(item.enabled);
      action->setData(item.code);
    }
  }
}

}  // namespace

std::int32_t execMenu(std::span<const PopupMenuItem> items, QPoint screen) {
  QMenu menu;
  menu.setSeparatorsCollapsible(false);
  fill(menu, items);
  const QAction* const chosen = menu.exec(screen);
  return chosen ? chosen->data().toInt() : 0;
}

}  // namespace tessera
