// A container that can only list its components.

#pragma once

#include <memory>
#include <vector>

#include <tessera/hosting.h>

namespace tessera {

class EnumerationPage : public Container, public ObjectEnumerator {
 public:
  void addObject(std::shared_ptr<Component> object) { objects_.push_back(std::move(object)); }
  std::vector<std::shared_ptr<Component>> enumObjects() const override { return objects_; }

 private:
  std::vector<std::shared_ptr<Component>> objects_;
};

}  // namespace tessera
