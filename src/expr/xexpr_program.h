// A compiled expression.

#pragma once

#include <tessera/xvalue.h>

#include "expr/eval_state.h"

namespace tessera {

// Immutable code, which any number of threads may run at once, each with its own state. Programs belong to
// their ExpressionEngine and live until its freePrograms(); style records borrow them.
class XExprProgram {
 public:
  virtual ~XExprProgram() = default;

  // Runs for state.ExprRow. The value belongs to the state and stands until the state's next run. Null when
  // the run ended in an error: there is no value, state.error tells why, and the caller goes on with what it
  // would show without the expression.
  virtual const XValue* evaluate(EvalState& state) const = 0;
};

}  // namespace tessera
