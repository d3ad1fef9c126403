#include "interaction/cursor_shape.h"

#include <array>

#include "interaction/column_resize.h"

namespace tessera {

namespace {

// The cursor numbers of the records, from 1.
constexpr std::array<Cursor, 9> recordCursors = {Cursor::Arrow,    Cursor::Beam,   Cursor::Cross,
                                                 Cursor::No,       Cursor::Help,   Cursor::Wait,
                                                 Cursor::Starting, Cursor::SizeWE, Cursor::Hand};

Cursor cursorOfRecord(std::int32_t number) {
  if (number < 1 || number > static_cast<std::int32_t>(recordCursors.size())) return Cursor::Arrow;
  return recordCursors[static_cast<std::size_t>(number) - 1];
}

bool isNear(std::int32_t inner, std::int32_t outer) {
  const std::int32_t distance = subClamped(outer, inner);
  return distance >= 0 && distance <= edgeReach;
}

// Only from inside a column: its sides are looked for to the left and to the right.
bool isAtColumnEdge(const CursorScene& scene, Point at) {
  const GridFrame& frame = scene.frame;
  const bool inFixed = frame.anyFixed && at.x >= frame.fixed.left && at.x < frame.fixed.right;
  for (const ColumnRecord& column : scene.columns) {
    if (!crossesHeader(column, at.y) || (inFixed && !column.header.fix)) continue;
    const Rect& header = column.header.rect;
    if (isNear(header.left, at.x) || isNear(at.x, header.right)) return true;
  }
  return false;
}

Cursor headerCursor(const CursorScene& scene, const Hit& hit, Point at) {
  if ((scene.settings.Resize & resizeColumnsBit) && isAtColumnEdge(scene, at)) return Cursor::SizeWE;
  return hit.column ? cursorOfRecord(hit.column->value().header.effectiveCursor(scene.eval)) : Cursor::Arrow;
}

Cursor cellCursor(const CursorScene& scene, const Hit& hit) {
  return hit.column ? cursorOfRecord(hit.column->value().view.effectiveCursor(scene.eval)) : Cursor::Arrow;
}

}  // namespace

Cursor cursorShape(const CursorScene& scene, const Hit& hit, Point at, bool canDrag) {
  if (at.x >= scene.frame.client.width || at.y >= scene.frame.client.height) return Cursor::Arrow;
  scene.eval.ExprRow = hit.row;
  switch (hit.region) {
    case Region::Header:
      return headerCursor(scene, hit, at);
    case Region::Row:
    case Region::SummaryRow:
      return canDrag ? Cursor::SizeAll : cellCursor(scene, hit);
    case Region::SummaryBand:
      return cellCursor(scene, hit);
    case Region::Indicator:
      return canDrag ? Cursor::SizeAll : Cursor::Arrow;
    case Region::Nothing:
      break;
  }
  return Cursor::Arrow;
}

}  // namespace tessera
