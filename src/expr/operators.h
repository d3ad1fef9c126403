// The handlers of the operators, and which of them fits which operands.

#pragma once

#include "expr/expr_call.h"
#include "expr/operator_table.h"
#include "expr/value_type.h"

namespace tessera {

struct OperatorChoice {
  ExprHandler handler;
  ExprType result;
  bool fits;  // false: the operands have no row, and this is the row for operands of any type
};

// Picks the handler by what is known of the operands before a run.
OperatorChoice chooseOperator(OperatorCode code, ExprType left, ExprType right);

}  // namespace tessera
