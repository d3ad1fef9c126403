// The page that a widget's grid stands on.

#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include <tessera/hosting.h>

#include "shared/compare.h"

namespace tessera {

// Hands out the components by name, and tells of the host's font and code page.
class QtPage : public ClientSite, public Container, public ItemContainer {
 public:
  explicit QtPage(std::function<AmbientFont()> font) : font_(std::move(font)) {}

  void put(const XString& id, std::shared_ptr<Component> component) {
    remove(id);
    components_.emplace_back(id, std::move(component));
  }
  void remove(const XString& id) {
    std::erase_if(components_, [&](const auto& entry) { return equalNoCase(entry.first, id); });
  }
  std::shared_ptr<Component> getObject(const XString& id) const override {
    const auto found = std::find_if(components_.begin(), components_.end(),
                                    [&](const auto& entry) { return equalNoCase(entry.first, id); });
    return found == components_.end() ? nullptr : found->second;
  }

  Container* container() override { return this; }
  std::optional<AmbientFont> ambientFont() override { return font_(); }
  XValue ambientCodePage() override {
    XValue value;
    value.setInteger(VT_UI4, codePage);
    return value;
  }

  std::uint32_t codePage = 65001;  // a Windows number; UTF-8

 private:
  std::function<AmbientFont()> font_;
  std::vector<std::pair<XString, std::shared_ptr<Component>>> components_;
};

}  // namespace tessera
