// Popup menus on the desktop.

#pragma once

#include <QPoint>
#include <cstdint>
#include <span>

#include "platform/popup_menu.h"

namespace tessera {

// Modal. 0 when nothing was chosen. An entry with children opens them whatever its `enabled` says: that
// switches commands off, and the children have their own.
std::int32_t execMenu(std::span<const PopupMenuItem> items, QPoint screen);

}  // namespace tessera
