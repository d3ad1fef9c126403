// The piece of a column that is drawn once, in the header band.

#pragma once

#include "config/cell_style.h"
#include "shared/rect.h"

namespace tessera {

struct HeaderCell : CellStyle {
  HeaderCell() {
    borderStyle = border::raisedInner;
    backColor = screen().face;
  }

  Rect rect;                    // client x, y inside the band; scrolling and resizing change left and right
  std::int32_t cursor = 1;      // cursor number
  bool fix = false;             // belongs to the region that does not scroll sideways
  XString text;                 // caption; ";" breaks the line
  XString imagePath;            // address that imageHandle came from
  std::int32_t layoutLeft = 0;  // as configured; export shapes its table by these
  std::int32_t layoutRight = 0;
  bool showCheck = false;  // a check box stands in the header
  bool checked = false;
  Glyph checkedBitmap = Glyph::CheckOn;
  Glyph uncheckedBitmap = Glyph::CheckOff;

  std::int32_t effectiveCursor(EvalState& state) const;
};

}  // namespace tessera
