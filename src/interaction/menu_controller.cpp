#include "interaction/menu_controller.h"

#include <memory>
#include <span>
#include <string>
#include <utility>

#include "interaction/fire_event.h"
#include "shared/compare.h"

namespace tessera {

namespace {

constexpr std::size_t longestItemText = 511;  // narrow bytes that a menu gives back

PopupMenuItem popupItem(const MenuItem& item) {
  PopupMenuItem popup;
  popup.separator = equalNoCase(item.text, u"separator");
  if (popup.separator) return popup;
  popup.enabled = item.enabled;
  popup.text = item.text;
  popup.code = item.code;
  for (const MenuItem& child : item.children) popup.children.push_back(popupItem(child));
  return popup;
}

// The first item of this code from top to bottom, a submenu's items before those below it. An entry that
// opens a submenu is no command.
const PopupMenuItem* itemOfCode(std::span<const PopupMenuItem> items, std::int32_t code) {
  for (const PopupMenuItem& item : items) {
    if (item.separator) continue;
    if (!item.children.empty()) {
      if (const PopupMenuItem* found = itemOfCode(item.children, code)) return found;
    } else if (item.code == code) {
      return &item;
    }
  }
  return nullptr;
}

// The text as the menu keeps it: narrow and cut, though not inside a character.
XString shownText(const XString& text) {
  std::string narrow = text.toUtf8();
  if (narrow.size() > longestItemText) {
    std::size_t end = longestItemText;
    while (end > 0 && (static_cast<unsigned char>(narrow[end]) & 0xC0) == 0x80) --end;
    narrow.resize(end);
  }
  return XString::fromNarrow(narrow);
}

}  // namespace

void MenuController::trackPopupMenu(std::int32_t x, std::int32_t y) {
  if (!parts_.window) return;
  std::vector<PopupMenuItem> items;
  for (const MenuItem& item : parts_.config.menu) items.push_back(popupItem(item));
  const auto shown = std::make_shared<const std::vector<PopupMenuItem>>(std::move(items));
  const Point origin = parts_.window->clientOrigin();
  parts_.window->trackPopupMenu(*shown, {addClamped(origin.x, x), addClamped(origin.y, y)},
                                [this, shown](std::int32_t code) { report(*shown, code); });
}

void MenuController::report(std::span<const PopupMenuItem> items, std::int32_t code) {
  if (code == 0) return;
  const PopupMenuItem* chosen = itemOfCode(items, code);
  const XString text = chosen ? shownText(chosen->text) : XString();
  fire<EventId::OnMenuSelected>(parts_, services_, code, text).last();
}

}  // namespace tessera
