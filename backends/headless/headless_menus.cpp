#include "backends/headless/headless_menus.h"

#include <algorithm>
#include <utility>

namespace tessera {

namespace {

bool canPick(std::span<const PopupMenuItem> items, std::int32_t code) {
  return std::any_of(items.begin(), items.end(), [code](const PopupMenuItem& item) {
    if (item.separator || !item.enabled) return false;
    return item.children.empty() ? item.code == code : canPick(item.children, code);
  });
}

}  // namespace

std::int32_t HeadlessMenus::track(std::span<const PopupMenuItem> items) {
  last_.assign(items.begin(), items.end());
  const std::int32_t code = std::exchange(answer_, 0);
  return canPick(items, code) ? code : 0;
}

}  // namespace tessera
