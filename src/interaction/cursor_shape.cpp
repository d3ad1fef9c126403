#include "interaction/cursor_shape.h"

#include <array>

#include "geometry/column_finders.h"
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

Cursor headerCursor(const CursorScene& scene, const Hit& hit, Point at) {
  if ((scene.settings.Resize & resizeColumnsBit) && isAtColumnEdge(scene.columns, scene.frame, at))
    return Cursor::SizeWE;
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
