// The pixels of the module's small pictures.

#pragma once

#include "config/glyph.h"
#include "shared/bitmap.h"
#include "shared/rect.h"

namespace tessera {

// Lives as long as the program. Glyph::None, and a number that is no glyph, have no pixels.
const Bitmap& glyphBitmap(Glyph glyph);

inline Size glyphSize(Glyph glyph) {
  const Bitmap& bitmap = glyphBitmap(glyph);
  return {bitmap.width, bitmap.height};
}

// The glyph in the vertical middle of `cell`, from `left` on.
inline Rect glyphRect(Glyph glyph, const Rect& cell, std::int32_t left) {
  const Size size = glyphSize(glyph);
  const std::int32_t middle = addClamped(cell.top, cell.height() / 2);
  return {left, subClamped(middle, size.height / 2), addClamped(left, size.width),
          addClamped(middle, size.height / 2)};
}

}  // namespace tessera
