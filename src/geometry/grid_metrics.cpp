#include "geometry/grid_metrics.h"

#include <algorithm>

#include "geometry/column_edges.h"

namespace tessera {

namespace {

// Seeds of the measuring walks: what an empty walk yields is part of the contract.
constexpr std::int32_t topSeed = 65536;
constexpr std::int32_t bottomSeed = 0;

struct Extent {
  std::int32_t top = topSeed;
  std::int32_t bottom = bottomSeed;

  void include(const Rect& rect) {
    top = std::min(top, rect.top);
    bottom = std::max(bottom, rect.bottom);
  }
  std::int32_t height() const { return subClamped(bottom, top); }
};

}  // namespace

void GridMetrics::measureHeights(const ColumnList& columns) {
  Extent header;
  Extent row;
  for (const ColumnRecord& column : columns) {
    header.include(column.header.rect);
    if (column.viewVisible) row.include(column.view.rect);
  }
  HeaderHeight = columns.empty() ? 0 : header.height();  // no band without columns
  RowHeight = row.height();
}

void GridMetrics::buildLineTops(const ColumnList& columns) {
  LineTops.clear();
  for (const ColumnRecord& column : columns) LineTops.push_back(column.view.rect.top);
  std::sort(LineTops.begin(), LineTops.end());
  LineTops.erase(std::unique(LineTops.begin(), LineTops.end()), LineTops.end());
}

std::int32_t GridMetrics::lineAt(std::int32_t top) const {
  const auto found = std::lower_bound(LineTops.begin(), LineTops.end(), top);
  return found != LineTops.end() && *found == top ? static_cast<std::int32_t>(found - LineTops.begin()) : 0;
}

void GridMetrics::makeRoomForIndicator(ColumnList& columns, std::int32_t width) {
  const std::int32_t wanted = std::max(width, 0);
  ShiftColumns(columns, subClamped(wanted, indicatorShift));
  indicatorShift = wanted;
}

void GridMetrics::closeFixedZone(ColumnList& columns) {
  AnyFixed = std::any_of(columns.begin(), columns.end(),
                         [](const ColumnRecord& column) { return column.header.fix; });
  if (!AnyFixed) return;
  const std::int32_t edge =
      ExpandRight(columns, fixedRange(columns).right, {.useHeader = true, .fixedToo = false, .limit = -1});
  for (ColumnRecord& column : columns) {
    if (column.header.rect.right <= edge) column.header.fix = true;
  }
}

}  // namespace tessera
