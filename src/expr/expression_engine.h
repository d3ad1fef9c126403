// Compiles the expressions of a grid and owns the programs.

#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include <tessera/xstring.h>

#include "expr/eval_state.h"
#include "expr/xexpr_compiler.h"

namespace tessera {

class ExpressionEngine {
 public:
  // Without a host there are no rows: references have no value.
  ExpressionEngine();
  ExpressionEngine(const ExpressionEngine&) = delete;
  ExpressionEngine& operator=(const ExpressionEngine&) = delete;

  // Borrowed. Programs that exist already ask the new host from then on.
  void setHost(const ExpressionHost& host) { context_.host = &host; }
  // Both are borrowed; null as in XExprContext.
  void setPlace(const Locale* locale, const Clock* clock) {
    context_.locale = locale;
    context_.clock = clock;
  }

  // The names that a bare word of an expression may mean.
  void clearColumnNames() {
    compiler_.names().clearColumnNames();
    columnsAreNamed_ = true;
  }
  // Whether anybody has told the names, if only that there are none.
  bool columnsAreNamed() const { return columnsAreNamed_; }
  // A name that another one starts with already is passed over.
  void addColumnName(const XString& name);

  // The program of `text`, owned by the engine; null when the text does not compile, and errors() tells why.
  const XExprProgram* compile(std::u16string_view text);
  const std::vector<XExprError>& errors() const { return errors_; }

  // Takes every program out of use. What must hold: no record that borrowed one is evaluated again. While
  // `state` is in the middle of a run, the programs stay in memory until the next call outside of a run.
  void freePrograms(const EvalState& state);

 private:
  using Programs = std::vector<std::unique_ptr<const XExprProgram>>;

  XExprContext context_;
  XExprCompiler compiler_{context_};
  Programs programs_;
  Programs retired_;  // freed in the middle of a run
  std::vector<XExprError> errors_;
  bool columnsAreNamed_ = false;
};

}  // namespace tessera
