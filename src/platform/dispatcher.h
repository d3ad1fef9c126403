// The way to the grid's thread.

#pragma once

#include <functional>

namespace tessera {

class Dispatcher {
 public:
  virtual ~Dispatcher() = default;
  // Runs `work` on the grid's thread: after what was posted before it, and never inside of post(). Any thread
  // may post. What has not run when the dispatcher goes never does.
  virtual void post(std::function<void()> work) = 0;
};

}  // namespace tessera
