#include "render/band_painters.h"

#include "config/format_value.h"
#include "render/cell_painters.h"
#include "render/glyphs.h"

namespace tessera {
namespace {

// A caption in the middle stays there: only at a side the box takes room from the text.
Rect placeBox(Glyph box, const Rect& cell, DrawStyle& style) {
  const std::int32_t width = glyphSize(box).width;
  const std::int32_t room = width + 2 * glyphGap;
  switch (sideOf(style.align)) {
    case Side::Right:
      style.rightMargin = room;
      return glyphRect(box, cell, subClamped(cell.right, glyphGap + width));
    case Side::Left:
      style.leftMargin = room;
      break;
    case Side::Center:
      break;
  }
  return glyphRect(box, cell, addClamped(cell.left, glyphGap));
}

}  // namespace

void paintHeaderCell(const PaintContext& context, const ColumnRecord& column) {
  const HeaderCell& header = column.header;
  const std::int32_t clipLeft = context.clipLeft(column);
  XString& caption = context.scratch.cellText;
  displayText(header, context.model.eval, caption);
  DrawStyle style(header);
  if (!header.showCheck) return drawHeaderText(context.target(), style, header.rect, caption, clipLeft);
  const Glyph box = header.checked ? header.checkedBitmap : header.uncheckedBitmap;
  const Rect boxRect = placeBox(box, header.rect, style);
  drawHeaderText(context.target(), style, header.rect, caption, clipLeft);
  const ColorRef backColor = context.model.settings.Enable ? screen().window : screen().face;
  drawGlyph(context.canvas, box, boxRect, backColor, clipLeft);
}

void paintSummaryCell(const PaintContext& context, const ColumnRecord& column, std::int32_t bandTop) {
  const Rect& view = column.view.rect;
  const std::int32_t top = addClamped(bandTop, view.top);
  XString& text = context.scratch.cellText;
  displayText(column.summary, context.model.eval, text);
  drawCell(context.target(), DrawStyle(column.summary),
           {view.left, top, view.right, addClamped(top, view.height())}, text, context.clipLeft(column));
}

}  // namespace tessera
