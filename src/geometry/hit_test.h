// Rectangles of cells, and which cell a point lies in.

#pragma once

#include <cstdint>

#include "binding/data_link.h"
#include "geometry/grid_frame.h"
#include "geometry/page_view.h"

namespace tessera {

// The client rectangle of a body cell in the row at `visibleIndex` of the page, cut at the fixed zone or the
// indicator. A column wholly behind the cut has a width of 0 or less.
Rect cellRect(const GridFrame& frame, const ColumnRecord& column, std::int32_t visibleIndex);

enum class Region : std::int32_t {
  Indicator = 1,
  Header = 2,
  Row = 3,
  SummaryRow = 4,  // a row of the dataset that sums others
  SummaryBand = 5,
  Nothing = 6,
};

namespace hit_row {
inline constexpr std::int32_t none = -1;
inline constexpr std::int32_t headerIndicator = -2;   // the indicator's cell in the header band
inline constexpr std::int32_t summaryIndicator = -3;  // and in the summary band
}  // namespace hit_row

struct Hit {
  Region region = Region::Nothing;
  std::int32_t row = hit_row::none;  // dataset row, or one of hit_row
  ColumnPosition column = nullptr;

  // noRow where no row of the dataset lies.
  Row dataRow() const { return row > 0 ? Row{row} : noRow; }
};

// Where columns overlap, the first in the list wins.
Hit hitTest(const GridFrame& frame, ColumnList& columns, const PageView& page, const DataLink& link,
            std::int32_t x, std::int32_t y);

}  // namespace tessera
