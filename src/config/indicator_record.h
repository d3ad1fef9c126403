// The indicator column left of all others.

#pragma once

#include "config/kept_expressions.h"

namespace tessera {

struct IndicatorRecord : CellStyle {
  static constexpr std::int32_t unset = -100;

  IndicatorRecord() {
    borderStyle = border::raisedInner;
    backColor = screen().face;
  }

  std::int32_t width = unset;  // pixels
  bool indexNumber = false;    // row numbers in place of status marks
  KeptExpressions kept;

  // What the columns stand to the right of: an unset width takes no room.
  std::int32_t effectiveWidth() const { return width == unset ? 0 : width; }
};

}  // namespace tessera
