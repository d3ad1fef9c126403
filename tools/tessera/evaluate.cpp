#include "tools/tessera/evaluate.h"

#include "control/grid_expression_host.h"

namespace tessera {

Evaluation evaluateExpression(const DataLink& link, const Locale* locale, const Clock* clock,
                              std::int32_t row, std::u16string_view text) {
  const GridExpressionHost host(link);
  ExpressionEngine engine;
  engine.setHost(host);
  engine.setPlace(locale, clock);
  loadColumnNames(link, engine);
  Evaluation evaluation;
  const XExprProgram* program = engine.compile(text);
  evaluation.compiled = program != nullptr;
  for (const XExprError& error : engine.errors()) evaluation.messages.push_back(error.message().toUtf8());
  if (!program) return evaluation;
  EvalState state;
  state.ExprRow = row;
  if (const XValue* value = program->evaluate(state)) {
    evaluation.value = *value;
  } else {
    evaluation.messages.push_back(state.error->message().toUtf8());
  }
  return evaluation;
}

}  // namespace tessera
