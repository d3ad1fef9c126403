#include "expr/eval_state.h"

namespace tessera {

EvalState::Run::Run(EvalState& state, std::size_t slotCount, std::size_t registerCount) : state_(state) {
  if (state.frames_.size() == state.depth_) state.frames_.push_back(std::make_unique<Frame>());
  Frame& lent = *state.frames_[state.depth_];
  if (lent.slots.size() < slotCount) lent.slots.resize(slotCount);
  if (lent.registers.size() < registerCount) lent.registers.resize(registerCount);
  ++state.depth_;
}

}  // namespace tessera
