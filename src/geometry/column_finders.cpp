#include "geometry/column_finders.h"

#include <cstdlib>

namespace tessera {

namespace {

bool crossesHeader(const ColumnRecord& column, std::int32_t y) {
  return column.header.rect.top < y && column.header.rect.bottom > y;
}

bool isNear(std::int32_t inner, std::int32_t outer) {
  const std::int32_t distance = subClamped(outer, inner);
  return distance >= 0 && distance <= edgeReach;
}

}  // namespace

ColumnPosition columnById(ColumnList& columns, const XString& id) {
  return firstColumn(columns, [&id](const ColumnRecord& column) { return column.id == id; });
}

const ColumnRecord* columnOfEdge(const ColumnList& columns, Point at, bool fixedOnly) {
  const ColumnRecord* nearest = nullptr;
  std::int64_t smallest = edgeReach;
  for (const ColumnRecord& column : columns) {
    if (!crossesHeader(column, at.y) || (fixedOnly && !column.header.fix)) continue;
    const std::int64_t distance = std::abs(static_cast<std::int64_t>(column.header.rect.right) - at.x);
    if (distance > smallest) continue;
    smallest = distance;
    nearest = &column;
  }
  return nearest;
}

bool isAtColumnEdge(const ColumnList& columns, const GridFrame& frame, Point at) {
  const bool inFixed = frame.anyFixed && at.x >= frame.fixed.left && at.x < frame.fixed.right;
  for (const ColumnRecord& column : columns) {
    if (!crossesHeader(column, at.y) || (inFixed && !column.header.fix)) continue;
    const Rect& header = column.header.rect;
    if (isNear(header.left, at.x) || isNear(at.x, header.right)) return true;
  }
  return false;
}

}  // namespace tessera
