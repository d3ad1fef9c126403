#include "config/kept_expressions.h"

#include <utility>

namespace tessera {

void KeptExpressions::keep(DynamicSlot slot, const XString& text) {
  forget(slot);
  list_.push_back({slot, text});
}

void KeptExpressions::await(DynamicSlot slot, const XString& text) {
  std::erase_if(awaiting_, [slot](const Kept& kept) { return kept.slot == slot; });
  awaiting_.push_back({slot, text});
}

void KeptExpressions::forget(DynamicSlot slot) {
  const auto isOfSlot = [slot](const Kept& kept) { return kept.slot == slot; };
  std::erase_if(list_, isOfSlot);
  std::erase_if(awaiting_, isOfSlot);
}

std::int32_t KeptExpressions::compileInto(CellStyle& style, const Compile& compile) {
  std::int32_t failures = 0;
  for (const Kept& awaiting : std::exchange(awaiting_, {})) {
    if (compile(awaiting.text)) {
      keep(awaiting.slot, awaiting.text);
    } else {
      ++failures;
    }
  }
  for (Kept& kept : list_) {
    const XExprProgram* program = compile(kept.text);
    style.setDynamic(kept.slot, program);
    if (!program && !kept.isReported) ++failures;
    kept.isReported = !program;
  }
  return failures;
}

}  // namespace tessera
