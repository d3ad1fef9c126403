// The appearance of a column in the summary band.

#pragma once

#include "config/cell_style.h"

namespace tessera {

struct SummaryCell : CellStyle {
  XString text;
};

}  // namespace tessera
