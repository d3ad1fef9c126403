#include "config/child_spec.h"

#include "shared/change_type.h"
#include "shared/compare.h"

namespace tessera {

bool ChildSpec::isEditable(EvalState& state) const {
  XValue value;
  const bool computed = evaluate(DynamicSlot::Text, state, value);
  return !equalNoCase(computed ? textOf(value) : editable, u"false");
}

}  // namespace tessera
