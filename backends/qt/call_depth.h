// Counts the calls that are under way between the control and Qt.

#pragma once

namespace tessera {

// While one is, nothing of them may be destroyed at once: a program that closes the grid from inside an event
// comes back into frames of all of them.
class CallDepth {
 public:
  class Scope {
   public:
    explicit Scope(CallDepth& depth) : depth_(depth) { ++depth_.calls_; }
    ~Scope() { --depth_.calls_; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    CallDepth& depth_;
  };

  bool underWay() const { return calls_ > 0; }

 private:
  int calls_ = 0;
};

}  // namespace tessera
