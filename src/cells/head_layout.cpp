#include "cells/head_layout.h"

#include "cells/draw_style.h"
#include "cells/glyphs.h"

namespace tessera {

// Only at a side the box takes room from the caption: one in the middle stays there, and the box is left of
// it.
HeadLayout layoutHead(const HeaderCell& header) {
  constexpr std::int32_t gap = 3;  // between box and side, and between box and caption
  HeadLayout layout{{}, header.leftMargin, header.rightMargin};
  if (!header.showCheck) return layout;
  const Glyph glyph = header.checked ? header.checkedBitmap : header.uncheckedBitmap;
  const std::int32_t width = glyphSize(glyph).width;
  const Side side = sideOf(header.align);
  const std::int32_t left =
      side == Side::Right ? subClamped(header.rect.right, gap + width) : addClamped(header.rect.left, gap);
  layout.check = CellPart::ofGlyph(glyph, header.rect, left);
  if (side == Side::Left) layout.leftMargin = width + 2 * gap;
  if (side == Side::Right) layout.rightMargin = width + 2 * gap;
  return layout;
}

}  // namespace tessera
