#include "geometry/column_scroll.h"

#include <optional>
#include <set>

namespace tessera {

void ColumnScroll::move(std::int32_t dx) {
  shiftScrolledColumns(columns, dx);
  focus.followColumn();
}

std::int32_t ColumnScroll::StepRight() {
  if (page.ColumnStop == page.horizontal.maximum) return 0;
  const std::int32_t start = frame.zoneStart();
  const std::int32_t viewRight = frame.usableRect(true).right;
  bool hiddenAtRight = false;
  std::optional<std::int32_t> edge;
  for (const ColumnRecord& column : columns) {
    if (column.header.fix) continue;
    const std::int32_t right = column.header.rect.right;
    hiddenAtRight = hiddenAtRight || right > viewRight;
    if (right > start) edge = std::min(edge.value_or(right), right);
  }
  if (!hiddenAtRight || !edge) return 0;
  const std::int32_t distance = subClamped(*edge, start);
  move(-distance);
  ++page.ColumnStop;
  return distance;
}

std::int32_t ColumnScroll::StepLeft() {
  if (page.ColumnStop == 1) return 0;
  const std::int32_t start = frame.zoneStart();
  std::optional<std::int32_t> edge;
  for (const ColumnRecord& column : columns) {
    const std::int32_t left = column.header.rect.left;
    if (!column.header.fix && left < start) edge = std::max(edge.value_or(left), left);
  }
  if (!edge) return 0;
  const std::int32_t distance = subClamped(start, *edge);
  move(distance);
  --page.ColumnStop;
  return distance;
}

void ColumnScroll::EnsureColumnVisible(const ColumnRecord& column) {
  if (!frame.hasWindow) return;
  const std::int32_t limit = frame.clipLeft(column);
  const Rect& view = column.view.rect;
  if (view.left < limit) {
    while (view.left < limit && StepLeft() != 0) {
    }
    return;
  }
  const std::int32_t viewRight = frame.usableRect(true).right;
  while (view.right > viewRight && view.left >= limit && StepRight() != 0) {
  }
  if (view.left < limit) StepLeft();
}

std::int32_t ColumnScroll::PageColumns() const {
  const std::int32_t viewRight = frame.usableRect(true).right;
  std::set<std::int32_t> lefts;
  for (const ColumnRecord& column : columns) {
    const Rect& rect = column.header.rect;
    if (rect.left >= frame.indicatorWidth && rect.right <= viewRight) lefts.insert(rect.left);
  }
  return static_cast<std::int32_t>(lefts.size());
}

}  // namespace tessera
