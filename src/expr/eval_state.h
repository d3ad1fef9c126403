// What one evaluation of expressions reads and writes beside the program's code.

#pragma once

#include <cstdint>

namespace tessera {

// One for each thread that evaluates. Whoever evaluates sets the row first; a run leaves it as it was.
class EvalState {
 public:
  std::int32_t ExprRow = 0;  // 1-based dataset row that grid variables and column references read
};

}  // namespace tessera
