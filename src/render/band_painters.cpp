#include "render/band_painters.h"

#include "cells/head_layout.h"
#include "config/format_value.h"

namespace tessera {

void paintHeaderCell(const PaintContext& context, const ColumnRecord& column) {
  const HeaderCell& header = column.header;
  const std::int32_t clipLeft = context.model.frame.clipLeft(column);
  XString& caption = context.scratch.cellText;
  displayText(header, context.model.eval, caption);
  const HeadLayout layout = layoutHead(header);
  DrawStyle style(header);
  style.leftMargin = layout.leftMargin;
  style.rightMargin = layout.rightMargin;
  drawHeaderText(context.target(), style, header.rect, caption, clipLeft);
  if (!header.showCheck) return;
  const ColorRef backColor = context.model.settings.Enable ? screen().window : screen().face;
  drawGlyph(context.canvas, layout.check.glyph, layout.check.drawn, backColor, clipLeft);
}

void paintSummaryCell(const PaintContext& context, const ColumnRecord& column, std::int32_t bandTop) {
  const Rect& view = column.view.rect;
  const std::int32_t top = addClamped(bandTop, view.top);
  XString& text = context.scratch.cellText;
  displayText(column.summary, context.model.eval, text);
  drawCell(context.target(), DrawStyle(column.summary),
           {view.left, top, view.right, addClamped(top, view.height())}, text,
           context.model.frame.clipLeft(column));
}

}  // namespace tessera
