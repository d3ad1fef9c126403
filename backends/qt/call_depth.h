// Counts the calls that are under way between the control and Qt.

#pragma once

#include <functional>
#include <utility>

namespace tessera {

// While one is, nothing of them may be destroyed at once: a program that closes the grid from inside an event
// comes back into frames of all of them.
class CallDepth {
 public:
  class Scope {
   public:
    explicit Scope(CallDepth& depth) : depth_(depth) { ++depth_.calls_; }
    ~Scope() {
      if (--depth_.calls_ == 0) depth_.end();
    }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    CallDepth& depth_;
  };

  bool underWay() const { return calls_ > 0; }
  // What to do when the last of them ends, as its last act. A program may run an event loop of its own inside
  // an event, so deferring to an event loop is not enough.
  void whenOver(std::function<void()> action) { whenOver_ = std::move(action); }

 private:
  void end() {
    if (const auto action = std::exchange(whenOver_, nullptr)) action();
  }

  int calls_ = 0;
  std::function<void()> whenOver_;
};

}  // namespace tessera
