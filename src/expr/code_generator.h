// From the tree of an expression to its code.

#pragma once

#include <unordered_map>
#include <vector>

#include "expr/compiled_program.h"
#include "expr/expr_errors.h"
#include "expr/expr_tree.h"

namespace tessera {

// Tests types and writes instructions in post-order. A tree with errors is walked as well, so that wrong
// types are reported along with the rest.
class CodeGenerator {
 public:
  CodeGenerator(const ExprTree& tree, const XExprContext& context, CompiledProgram& program,
                ExprErrors& errors)
      : tree_(tree), context_(context), program_(program), errors_(errors) {}

  void generate(ExprTree::Id whole);

 private:
  // What is known of a value before a run, and where a run will find it.
  struct Place {
    CompiledProgram::Register at;
    ExprType type;
  };

  Place operand(ExprTree::Id id);
  Place literal(ExprType type, const XString& text);
  Place call(const ExprTree::Operand& call);
  Place unknownCall(const ExprTree::Operand& call);
  Place column(const XString& name);
  Place keyword(const XString& name);
  Place chain(ExprTree::Id first);
  Place argument(const XExprFunction& function, const ExprTree::Operand& call, std::size_t index);

  const ExprTree& tree_;
  const XExprContext& context_;
  CompiledProgram& program_;
  ExprErrors& errors_;
  std::unordered_map<std::int32_t, CompiledProgram::Register> columns_;  // by number: where the value stands
  Place missing_{};  // what a missing operand reads: the number 0
};

}  // namespace tessera
