#include "config/child_spec.h"

#include "shared/change_type.h"
#include "shared/compare.h"

namespace tessera {

bool ChildSpec::isEditable(EvalState& state) const {
  const XValue* value = computed(DynamicSlot::Text, state);
  return !equalNoCase(value ? textOf(*value) : editable, u"false");
}

}  // namespace tessera
