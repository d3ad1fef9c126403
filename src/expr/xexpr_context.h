// What every program of a grid runs in.

#pragma once

#include "expr/expression_host.h"
#include "platform/clock.h"
#include "platform/locale.h"

namespace tessera {

// All are borrowed and read only, so that programs may run on several threads at once.
struct XExprContext {
  const ExpressionHost* host;      // never null
  const Locale* locale = nullptr;  // null: English
  const Clock* clock = nullptr;    // null: universal time
};

}  // namespace tessera
