// What stands beside the grid on a page or form.

#pragma once

namespace tessera {

// The common root of everything that a host's containers hold. What a component can do is found by casting it
// to the interface wanted (dynamic_cast, std::dynamic_pointer_cast); a failed cast means "it cannot".
class Component {
 public:
  virtual ~Component() = default;
};

}  // namespace tessera
