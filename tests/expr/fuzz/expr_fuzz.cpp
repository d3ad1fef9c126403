// Compiles and runs whatever comes. What must hold: nothing faults, a text either has errors or a program,
// and a program gives the same value again.

#include <cstdint>
#include <cstdlib>

#include "expr/sample_rows.h"

namespace {

using tessera::XExprProgram;
using tessera::XValue;

void require(bool holds) {
  if (!holds) std::abort();
}

std::string shown(const XExprProgram& program, tessera::EvalState& state) {
  const XValue* value = program.evaluate(state);
  require((value == nullptr) == state.error.has_value());
  return value ? tessera::literalText(*value) : state.error->message().toUtf8();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static tessera::test::SampleEngine sample;
  const std::string bytes(data, data + size);
  const XExprProgram* program = sample.engine.compile(tessera::utf16FromUtf8(bytes));
  require((program == nullptr) == !sample.engine.errors().empty());
  if (program) {
    for (std::int32_t row = 0; row <= 4; ++row) {
      sample.state.ExprRow = row;
      require(shown(*program, sample.state) == shown(*program, sample.state));
    }
  }
  sample.engine.freePrograms(sample.state);
  return 0;
}
