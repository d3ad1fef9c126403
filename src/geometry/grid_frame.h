// Where the bands of a grid lie.

#pragma once

#include <cstdint>

#include "config/grid_config.h"
#include "config/grid_settings.h"
#include "geometry/column_edges.h"
#include "geometry/grid_metrics.h"

namespace tessera {

// A snapshot of the numbers that every rectangle and every hit is computed from; taken anew for each
// operation, since scrolling, resizing and the host change them.
struct GridFrame {
  bool hasWindow = false;
  Size client;
  std::int32_t headerBand = 0;      // height of the header band, 0 when it is not shown
  std::int32_t indicatorWidth = 0;  // the columns start to the right of it
  std::int32_t rowHeight = -1;
  SummaryBand summary = SummaryBand::None;
  bool anyFixed = false;
  FixedRange fixed;  // meaningful with anyFixed

  // The left limit of the columns that scroll.
  std::int32_t zoneStart() const { return anyFixed ? fixed.right : indicatorWidth; }
  // The client rectangle; with `adjust` without the summary band.
  Rect usableRect(bool adjust) const;
  // Whole rows that fit: -1 without a window, 0 without a row height, else at least 1.
  std::int32_t rowCapacity() const;
  // Top of the first row.
  std::int32_t firstRowTop() const;
  // Top of the row at `index` of the page.
  std::int32_t rowTop(std::int32_t index) const;
  // The leftmost x that a column's cells may touch: the fixed columns or the indicator stand left of it.
  std::int32_t clipLeft(const ColumnRecord& column) const {
    return column.header.fix ? indicatorWidth : zoneStart();
  }
  // The body cell of a column in the row at `index` of the page, not cut where the column is scrolled away.
  Rect wholeCell(const ColumnRecord& column, std::int32_t index) const;
};

// `client` is null without a window.
GridFrame frameOf(const GridConfig& config, const GridSettings& settings, const GridMetrics& metrics,
                  const Size* client);

}  // namespace tessera
