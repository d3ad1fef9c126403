// The appearance of a column on the group rows of one level.

#pragma once

#include "config/cell_style.h"

namespace tessera {

struct GroupCell : CellStyle {
  XString text = u"bind";  // "bind", "inherit", or a caption
  std::int32_t level = 0;  // no group row has level 0

  // The literal text, or the empty text when an expression stands in its place: what the two keywords are
  // looked for in.
  XString rawText() const { return isDynamic(DynamicSlot::Text) ? XString() : text; }
};

}  // namespace tessera
