#include "geometry/column_edges.h"

#include <algorithm>

namespace tessera {

namespace {

bool passedOver(const ColumnRecord& column, const Rect& rect, const ExpandOptions& options) {
  if (!options.fixedToo) return column.header.fix;
  return !column.header.fix && rect.left < options.limit;
}

// Columns only ever push the edge the same way, so the order of the walk does not change where it ends, and
// walking on from the new edge saves the restarts.
template <class Pushed>
std::int32_t expand(const ColumnList& columns, std::int32_t edge, const ExpandOptions& options,
                    Pushed pushed) {
  for (bool moved = true; moved;) {
    moved = false;
    for (const ColumnRecord& column : columns) {
      const Rect& rect = options.useHeader ? column.header.rect : column.view.rect;
      if (passedOver(column, rect, options) || rect.left >= edge || rect.right <= edge) continue;
      edge = pushed(rect);
      moved = true;
    }
  }
  return edge;
}

}  // namespace

FixedRange fixedRange(const ColumnList& columns) {
  FixedRange range;
  for (const ColumnRecord& column : columns) {
    if (!column.header.fix) continue;
    range.left = std::min(range.left, column.header.rect.left);
    range.right = std::max(range.right, column.header.rect.right);
  }
  return range;
}

std::int32_t ExpandRight(const ColumnList& columns, std::int32_t edge, const ExpandOptions& options) {
  return expand(columns, edge, options, [](const Rect& rect) { return rect.right; });
}

std::int32_t ExpandLeft(const ColumnList& columns, std::int32_t edge, const ExpandOptions& options) {
  return expand(columns, edge, options, [](const Rect& rect) { return rect.left; });
}

void moveColumn(ColumnRecord& column, std::int32_t dx) {
  for (Rect* rect : {&column.header.rect, &column.view.rect}) {
    rect->left = addClamped(rect->left, dx);
    rect->right = addClamped(rect->right, dx);
  }
}

void widenColumn(ColumnRecord& column, std::int32_t dx) {
  for (Rect* rect : {&column.header.rect, &column.view.rect}) rect->right = addClamped(rect->right, dx);
}

void ShiftEdge(ColumnList& columns, std::int32_t edge, std::int32_t dx) {
  for (ColumnRecord& column : columns) {
    const Rect& header = column.header.rect;
    if (header.left >= edge) {
      moveColumn(column, dx);
    } else if (header.right >= edge) {
      widenColumn(column, dx);
    }
  }
}

void ShiftColumns(ColumnList& columns, std::int32_t dx) {
  for (ColumnRecord& column : columns) moveColumn(column, dx);
}

void shiftScrolledColumns(ColumnList& columns, std::int32_t dx) {
  for (ColumnRecord& column : columns) {
    if (!column.header.fix) moveColumn(column, dx);
  }
}

}  // namespace tessera
