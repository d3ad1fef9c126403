// What an evaluation of expressions reads and writes beside the code of the program.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include <tessera/xvalue.h>

#include "expr/xexpr_error.h"

namespace tessera {

// One for each thread that evaluates. Whoever evaluates sets the row first; a run leaves it as it was.
class EvalState {
 public:
  std::int32_t ExprRow = 0;  // 1-based dataset row that grid variables and column references read
  // Why the last run gave no value; nothing when it gave one.
  std::optional<XExprError> error;

  // The values of one run: `slots` are its own, `registers` point at slots or literals.
  struct Frame {
    std::vector<XValue> slots;
    std::vector<const XValue*> registers;
  };

  // Lends a frame to a run. Frames and the texts in their slots are used again, by whatever program comes
  // next, so that a warm run allocates nothing. A data set that is asked for a value may make the grid
  // evaluate again before it answers: runs nest, each with a frame of its own.
  class Run {
   public:
    Run(EvalState& state, std::size_t slotCount, std::size_t registerCount) : state_(state) {
      if (state.frames_.size() == state.depth_) state.frames_.push_back(std::make_unique<Frame>());
      Frame& lent = *state.frames_[state.depth_];
      if (lent.slots.size() < slotCount) lent.slots.resize(slotCount);
      if (lent.registers.size() < registerCount) lent.registers.resize(registerCount);
      ++state.depth_;
    }
    ~Run() { --state_.depth_; }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    Frame& frame() { return *state_.frames_[state_.depth_ - 1]; }

   private:
    EvalState& state_;
  };

  bool isRunning() const { return depth_ > 0; }

 private:
  std::vector<std::unique_ptr<Frame>> frames_;  // by depth of nesting
  std::size_t depth_ = 0;
};

}  // namespace tessera
