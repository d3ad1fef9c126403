// A form that hands out its components by name.

#pragma once

#include <memory>
#include <utility>
#include <vector>

#include <tessera/hosting.h>

namespace tessera {

// Names compare without ASCII case, as on the other pages; of two equal names the first counts.
class ItemPage : public Container, public ItemContainer {
 public:
  void addItem(const XString& id, std::shared_ptr<Component> object);
  std::shared_ptr<Component> getObject(const XString& id) const override;

 private:
  std::vector<std::pair<XString, std::shared_ptr<Component>>> items_;
};

}  // namespace tessera
