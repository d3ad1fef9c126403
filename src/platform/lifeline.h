// Tells an object whether it outlived a call that it made.

#pragma once

#include <memory>

namespace tessera {

// Owners answer a call by closing the window, and with it the object that called. Whoever goes on after such
// a call takes a watch before it.
class Lifeline {
 public:
  using Watch = std::weak_ptr<const void>;

  Watch watch() const { return life_; }

 private:
  std::shared_ptr<const void> life_ = std::make_shared<char>();
};

}  // namespace tessera
