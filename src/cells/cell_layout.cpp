#include "cells/cell_layout.h"

#include <algorithm>

#include "cells/cell_kinds.h"
#include "cells/glyphs.h"

namespace tessera {
namespace {

// A text in a cell without anything else.
CellLayout bareLayout(const CellPlace& place) {
  const CellStyle& view = place.column.view;
  CellLayout layout;
  layout.cell = place.cell;
  layout.reachable = place.cell;
  layout.reachable.left = std::max(place.cell.left, place.clipLeft);
  layout.visible = layout.reachable;
  layout.visible.bottom = std::min(place.cell.bottom, place.bottomLimit);
  layout.body = layout.editor = layout.visible;
  layout.leftMargin = view.leftMargin;
  layout.rightMargin = view.rightMargin;
  layout.align = view.align;
  return layout;
}

}  // namespace

CellPart CellPart::ofGlyph(Glyph glyph, const Rect& cell, std::int32_t left) {
  const Rect drawn = glyphRect(glyph, cell, left);
  return {glyph, drawn, {drawn.left, subClamped(drawn.top, 1), drawn.right, addClamped(drawn.bottom, 1)}};
}

CellLayout layoutCell(const CellPlace& place) {
  CellLayout layout = bareLayout(place);
  const CellFace& face = *kindOf(place.column).face;
  if (face.layout) face.layout(place, layout);
  if (isTreeCell(place.column, place.tree)) placeTree(place, layout);
  return layout;
}

bool isTreeCell(const ColumnRecord& column, const TreeInfo& tree) {
  return column.hasTree && tree.rowMode != RowMode::Plain;
}

void placeButton(const CellPlace& place, Glyph glyph, CellLayout& layout) {
  constexpr std::int32_t room = 20;  // that the text leaves for it
  const Size size = glyphSize(glyph);
  const std::int32_t left = subClamped(place.cell.right, size.width);
  layout.button.glyph = glyph;
  layout.button.pressed = CellPart::ofGlyph(glyph, layout.reachable, left).pressed;
  if (!place.showsButton) return;
  Rect& drawn = layout.button.drawn;
  drawn = glyphRect(glyph, layout.visible, left);
  drawn.bottom = addClamped(drawn.top, size.height);
  drawn.left = std::max(drawn.left, layout.visible.left);
  layout.rightMargin = addClamped(layout.rightMargin, room);
  layout.body.right = left;
  layout.editor = layout.body;
}

}  // namespace tessera
