#include "interaction/head_check.h"

#include "render/cell_painters.h"
#include "render/draw_style.h"
#include "render/glyphs.h"

namespace tessera {

Rect headCheckRect(const HeaderCell& header) {
  if (!header.showCheck) return {};
  const Glyph glyph = header.checked ? header.checkedBitmap : header.uncheckedBitmap;
  const std::int32_t width = glyphSize(glyph).width;
  const Rect& cell = header.rect;
  const bool atRight = sideOf(header.align) == Side::Right;
  const std::int32_t left =
      atRight ? subClamped(cell.right, glyphGap + width) : addClamped(cell.left, glyphGap);
  Rect box = glyphRect(glyph, cell, left);
  box.top = subClamped(box.top, 1);
  box.bottom = addClamped(box.bottom, 1);
  return box;
}

}  // namespace tessera
