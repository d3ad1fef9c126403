#include "config/cell_cursor.h"

#include "config/header_cell.h"
#include "config/value_words.h"
#include "config/view_cell.h"

namespace tessera {

std::int32_t effectiveCursor(const CellStyle& style, std::int32_t stored, EvalState& state) {
  constexpr std::int32_t arrow = 1;
  const XValue* value = style.computed(DynamicSlot::Cursor, state);
  if (!value) return stored;
  return value->type() == VT_BSTR ? parseCursor(value->asText()) : arrow;
}

std::int32_t HeaderCell::effectiveCursor(EvalState& state) const {
  return tessera::effectiveCursor(*this, cursor, state);
}

std::int32_t ViewCell::effectiveCursor(EvalState& state) const {
  return tessera::effectiveCursor(*this, cursor, state);
}

}  // namespace tessera
