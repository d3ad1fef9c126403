// Popup menus on the desktop.

#pragma once

#include <QPoint>
#include <cstdint>
#include <span>

#include "platform/popup_menu.h"

class QWidget;

namespace tessera {

// Modal, above `owner`. 0 when nothing was chosen. An entry with children opens them whatever its `enabled`
// says: that switches commands off, and the children have their own.
std::int32_t execMenu(QWidget& owner, std::span<const PopupMenuItem> items, QPoint screen);
// Menus of the owner that are up end without a choice.
void closeMenus(QWidget& owner);

}  // namespace tessera
