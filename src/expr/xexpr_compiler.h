// Compiles expressions.

#pragma once

#include <memory>
#include <string_view>

#include "expr/compiled_program.h"
#include "expr/expr_names.h"
#include "expr/xexpr_error.h"

namespace tessera {

// Keeps nothing of one text for the next. Not for two threads at once.
class XExprCompiler {
 public:
  // `context` is borrowed by the compiler and by every program.
  explicit XExprCompiler(const XExprContext& context) : context_(context) {}

  ExprNames& names() { return names_; }
  const ExprNames& names() const { return names_; }

  // Throws an XExprParserException that tells everything that is wrong with `text`.
  std::unique_ptr<CompiledProgram> compile(std::u16string_view text) const;

 private:
  const XExprContext& context_;
  ExprNames names_;
};

}  // namespace tessera
