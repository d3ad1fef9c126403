#include "tools/tessera/evaluate.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>

#include "control/grid_expression_host.h"

namespace tessera {

std::vector<std::string> Evaluation::errorLines() const {
  std::vector<std::string> lines;
  std::transform(errors.begin(), errors.end(), std::back_inserter(lines), [](const XExprError& error) {
    return fmt::format("error {} {}", static_cast<std::int32_t>(error.code), error.message().toUtf8());
  });
  return lines;
}

Evaluation evaluateExpression(const DataLink& link, const Locale* locale, const Clock* clock,
                              std::int32_t row, std::u16string_view text) {
  const GridExpressionHost host(link);
  ExpressionEngine engine;
  engine.setHost(host);
  engine.setPlace(locale, clock);
  loadColumnNames(link, engine);
  Evaluation evaluation;
  const XExprProgram* program = engine.compile(text);
  evaluation.errors = engine.errors();
  if (!program) return evaluation;
  EvalState state;
  state.ExprRow = row;
  if (const XValue* value = program->evaluate(state)) {
    evaluation.value = *value;
  } else {
    evaluation.errors.push_back(*state.error);
  }
  return evaluation;
}

}  // namespace tessera
