// The code of an expression.

#pragma once

#include <cstdint>
#include <vector>

#include "expr/expr_call.h"
#include "expr/xexpr_program.h"

namespace tessera {

// A flat list of instructions over registers. A register holds a literal, which stands in the program, or the
// result of an instruction, which stands in the evaluation's state. There are no jumps: a run executes
// everything, and touches no text and no name.
class CompiledProgram final : public XExprProgram {
 public:
  using Register = std::uint32_t;

  // `context` is borrowed.
  explicit CompiledProgram(const XExprContext& context) : context_(context) {}

  const XValue* evaluate(EvalState& state) const override;
  std::size_t instructionCount() const { return instructions_.size(); }

  // Building. The last call is finish(). A slot keeps the value of the instruction that wrote it last.
  using Slot = std::uint32_t;
  Register addLiteral(XValue value);
  Register addRegister() { return registerCount_++; }
  Slot addSlot() { return slotCount_++; }
  // Registers that hold nothing are not evaluated; `function` is null for an operator.
  void addInstruction(ExprHandler handler, const XExprFunction* function, std::vector<Register> arguments,
                      Register result, Slot slot);
  // Reads a column of the row under evaluation.
  void addColumnRead(std::int32_t column, Register result);
  void finish(Register result) { result_ = result; }

 private:
  struct Instruction {
    ExprHandler handler;  // null: reads the column whose number stands in `firstArgument`
    const XExprFunction* function;
    std::uint32_t firstArgument;  // in arguments_
    std::uint32_t argumentCount;
    Register result;
    Slot slot;
  };
  struct Literal {
    Register place;
    XValue value;
  };

  const XExprContext& context_;
  std::vector<Instruction> instructions_;
  std::vector<Register> arguments_;
  std::vector<Literal> literals_;
  Register registerCount_ = 0;
  Slot slotCount_ = 0;
  Register result_ = 0;
};

}  // namespace tessera
