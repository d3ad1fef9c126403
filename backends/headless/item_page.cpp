#include "backends/headless/item_page.h"

#include "shared/compare.h"

namespace tessera {

void ItemPage::addItem(const XString& id, std::shared_ptr<Component> object) {
  items_.emplace_back(id, std::move(object));
}

std::shared_ptr<Component> ItemPage::getObject(const XString& id) const {
  for (const auto& [name, object] : items_) {
    if (equalNoCase(name, id)) return object;
  }
  return nullptr;
}

}  // namespace tessera
