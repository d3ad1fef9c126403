#include "backends/qt/qt_menu.h"

#include <QMenu>
#include <QPointer>

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

// The owner may go while the menu is up, and the menu with it.
std::int32_t execMenu(QWidget& owner, std::span<const PopupMenuItem> items, QPoint screen) {
  const QPointer<QMenu> menu = new QMenu(&owner);
  menu->setSeparatorsCollapsible(false);
  fill(*menu, items);
  const QAction* const chosen = menu->exec(screen);
  if (!menu) return 0;
  menu->deleteLater();
  return chosen ? chosen->data().toInt() : 0;
}

void closeMenus(QWidget& owner) {
  for (QMenu* menu : owner.findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) menu->close();
}

}  // namespace tessera
