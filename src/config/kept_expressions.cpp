#include "config/kept_expressions.h"

namespace tessera {

void KeptExpressions::keep(DynamicSlot slot, const XString& text, bool isReported) {
  forget(slot);
  list_.push_back({slot, text, isReported});
}

void KeptExpressions::forget(DynamicSlot slot) {
  std::erase_if(list_, [slot](const Kept& kept) { return kept.slot == slot; });
}

std::int32_t KeptExpressions::compileInto(CellStyle& style, const Compile& compile) {
  std::int32_t failures = 0;
  for (Kept& kept : list_) {
    const XExprProgram* program = compile(kept.text);
    style.setDynamic(kept.slot, program);
    if (!program && !kept.isReported) ++failures;
    kept.isReported = !program;
  }
  return failures;
}

}  // namespace tessera
