// A host with one object on it, which answers to every name.

#pragma once

#include <memory>
#include <utility>

#include <tessera/hosting.h>

namespace tessera {

class OneObjectSite : public ClientSite, public Container, public ItemContainer {
 public:
  explicit OneObjectSite(std::shared_ptr<Component> object) : object_(std::move(object)) {}
  tessera::Container* container() override { return this; }
  std::optional<AmbientFont> ambientFont() override { return std::nullopt; }
  XValue ambientCodePage() override { return {}; }
  std::shared_ptr<Component> getObject(const XString&) const override { return object_; }

 private:
  std::shared_ptr<Component> object_;
};

}  // namespace tessera
