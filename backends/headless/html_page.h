// A page whose components stand in elements.

#pragma once

#include <memory>
#include <vector>

#include <tessera/hosting.h>

namespace tessera {

class HtmlPage : public Container, public HtmlDocument {
 public:
  // An element with an object in it, or a plain one (null).
  void addElement(const XString& id, std::shared_ptr<Component> object);
  // An entry that is no element, as comments are.
  void addOther() { items_.push_back(std::make_shared<Component>()); }

  std::int32_t length() const override { return static_cast<std::int32_t>(items_.size()); }
  std::shared_ptr<Component> item(std::int32_t index) const override;

 private:
  std::vector<std::shared_ptr<Component>> items_;  // in document order
};

}  // namespace tessera
