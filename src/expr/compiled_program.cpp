#include "expr/compiled_program.h"

#include <algorithm>

namespace tessera {

CompiledProgram::Register CompiledProgram::addLiteral(XValue value) {
  literals_.push_back({registerCount_, std::move(value)});
  return registerCount_++;
}

void CompiledProgram::addInstruction(ExprHandler handler, const XExprFunction* function,
                                     std::vector<Register> arguments, Register result, Slot slot) {
  instructions_.push_back({handler, function, static_cast<std::uint32_t>(arguments_.size()),
                           static_cast<std::uint32_t>(arguments.size()), result, slot});
  arguments_.insert(arguments_.end(), arguments.begin(), arguments.end());
}

void CompiledProgram::finish(Register result) {
  registers_.assign(registerCount_, nullptr);
  for (const Literal& literal : literals_) registers_[literal.place] = &literal.value;
  result_ = result;
}

const XValue* CompiledProgram::evaluate(EvalState& state) const {
  state.error.reset();
  EvalState::Run lent(state, slotCount_, registers_.size());
  const XValue** registers = lent.frame().registers.data();
  std::copy(registers_.begin(), registers_.end(), registers);
  ExprCall call(context_, state, registers);
  XValue* slots = lent.frame().slots.data();
  for (const Instruction& instruction : instructions_) {
    call.begin(arguments_.data() + instruction.firstArgument, instruction.argumentCount,
               slots[instruction.slot], instruction.function);
    const XValue* value = instruction.handler(call);
    if (!value) return nullptr;
    registers[instruction.result] = value;
  }
  state.error.reset();  // of a run within this one, which did without its value
  return registers[result_];
}

}  // namespace tessera
