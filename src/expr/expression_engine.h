// Compiles expression texts and owns the programs.

#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include <tessera/xstring.h>

#include "expr/xexpr_program.h"

namespace tessera {

// The language itself is not part of this version: compile() refuses every text, so attributes that hold an
// expression are reported and keep their plain values.
class ExpressionEngine {
 public:
  // The names that a bare word of an expression may mean. Entering a name twice keeps one.
  void clearVariables();
  void addVariable(const XString& name);

  // The program of `text`, owned by the engine; null when the text does not compile.
  const XExprProgram* compile(std::u16string_view text);

  // Deletes every program. What must hold: no record that borrowed one is evaluated again.
  void freePrograms();

 private:
  std::vector<XString> variables_;
  std::vector<std::unique_ptr<const XExprProgram>> programs_;
};

}  // namespace tessera
