#include "expr/xexpr_compiler.h"

#include "expr/code_generator.h"
#include "expr/parser.h"

namespace tessera {

std::unique_ptr<CompiledProgram> XExprCompiler::compile(std::u16string_view text) const {
  auto program = std::make_unique<CompiledProgram>(context_);
  ExprTree tree;
  ExprErrors errors;
  const ExprTree::Id whole = Parser(text, names_, tree, errors).parse();
  if (tree.empty()) errors.report(ExprErrorCode::MissingExpression);
  if (!errors.full()) CodeGenerator(tree, context_, *program, errors).generate(whole);
  if (!errors.empty()) throw XExprParserException(errors.take());
  return program;
}

}  // namespace tessera
