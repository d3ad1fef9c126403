#include "expr/compiled_program.h"

namespace tessera {
namespace {

// Slots are shared by programs: a host that writes nothing must not show what was there.
void readColumn(const ExpressionHost& host, std::int32_t row, std::int32_t column, XValue& own) {
  own.setEmpty();
  if (!succeeded(host.ColumnValue(row, column, own))) own.setEmpty();
}

}  // namespace

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

void CompiledProgram::addColumnRead(std::int32_t column, Register result) {
  instructions_.push_back({nullptr, nullptr, static_cast<std::uint32_t>(column), 0, result, addSlot()});
}

const XValue* CompiledProgram::evaluate(EvalState& state) const {
  state.error.reset();
  EvalState::Run lent(state, slotCount_, registerCount_);
  const XValue** registers = lent.frame().registers.data();
  for (const Literal& literal : literals_) registers[literal.place] = &literal.value;
  ExprCall call(context_, state, registers);
  XValue* slots = lent.frame().slots.data();
  for (const Instruction& instruction : instructions_) {
    XValue& own = slots[instruction.slot];
    const XValue* value = &own;
    if (instruction.handler) {
      call.begin(arguments_.data() + instruction.firstArgument, instruction.argumentCount, own,
                 instruction.function);
      value = instruction.handler(call);
      if (!value) return nullptr;
    } else {
      readColumn(*context_.host, call.row(), static_cast<std::int32_t>(instruction.firstArgument), own);
    }
    registers[instruction.result] = value;
  }
  state.error.reset();  // of a run within this one, which did without its value
  return registers[result_];
}

}  // namespace tessera
