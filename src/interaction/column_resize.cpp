#include "interaction/column_resize.h"

#include "geometry/column_finders.h"

namespace tessera {

namespace {

// The edge stops short of the nearest inner edge: on another line of the template a column may end between
// the two sides of this one.
std::int32_t leftLimit(const ColumnList& columns, const Rect& dragged) {
  std::int32_t inner = dragged.left;
  for (const ColumnRecord& column : columns) {
    const std::int32_t right = column.header.rect.right;
    if (right < dragged.right) inner = std::max(inner, right);
  }
  return addClamped(inner, leastColumnWidth);
}

}  // namespace

bool ColumnResize::start(Point at) {
  if (!(parts_.settings.Resize & resizeColumnsBit) || !parts_.settings.ViewHeader) return false;
  const GridFrame frame = parts_.frame();
  if (at.x <= addClamped(frame.indicatorWidth, edgeReach)) return false;
  const bool fixed = frame.anyFixed && at.x < addClamped(frame.fixed.right, edgeReach);
  const ColumnRecord* column = columnOfEdge(parts_.config.columns, at, fixed);
  if (!column) return false;
  const Rect& header = column->header.rect;
  ResizeModel& resize = parts_.mouse.resize;
  resize.active = true;
  resize.edge = header.right;
  resize.lastX = at.x;
  resize.minX = leftLimit(parts_.config.columns, header);
  resize.maxX = subClamped(frame.usableRect(true).right, 1);
  resize.fixed = fixed;
  capture_.take();
  return true;
}

bool ColumnResize::step(std::int32_t x) {
  ResizeModel& resize = parts_.mouse.resize;
  if (!resize.active) return false;
  if (x < resize.minX || x > resize.maxX || x == resize.lastX) return false;
  const std::int32_t wanted = addClamped(resize.edge, subClamped(x, resize.lastX));
  const std::int32_t edge = std::clamp(wanted, resize.minX, resize.maxX);
  const std::int32_t dx = subClamped(edge, resize.edge);
  resize.lastX = x;
  if (dx == 0) return false;
  moveEdge(dx);
  resize.edge = edge;
  parts_.focus.followColumn();
  return true;
}

// Columns that share the edge follow together on every line of the template.
void ColumnResize::moveEdge(std::int32_t dx) {
  const ResizeModel& resize = parts_.mouse.resize;
  for (ColumnRecord& column : parts_.config.columns) {
    const Rect& header = column.header.rect;
    const Rect& view = column.view.rect;
    const bool behind = header.left >= resize.edge || view.left >= resize.edge;
    const bool before = header.right < resize.edge && view.right < resize.edge;
    const bool scrolls = resize.fixed && !column.header.fix;
    if (behind || scrolls) {
      moveColumn(column, dx);
    } else if (!before) {
      widenColumn(column, dx);
    }
  }
}

bool ColumnResize::end() {
  if (parts_.mouse.resize.active) parts_.updateBars(bar_bit::horizontal);
  parts_.mouse.resize.active = false;
  return capture_.release();
}

}  // namespace tessera
