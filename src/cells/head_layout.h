// Where the parts of a header stand.

#pragma once

#include "cells/cell_layout.h"

namespace tessera {

struct HeadLayout {
  CellPart check;  // none without its box
  std::int32_t leftMargin = 0;
  std::int32_t rightMargin = 0;
};

HeadLayout layoutHead(const HeaderCell& header);

}  // namespace tessera
