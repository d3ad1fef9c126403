#include "config/format_value.h"
#include "render/cell_painters.h"
#include "render/glyphs.h"
#include "shared/compare.h"

namespace tessera {
namespace {

// What differs between the two kinds of cell with a mark.
struct MarkCell {
  const XString& labelColumn;
  Glyph on = Glyph::None;
  Glyph off = Glyph::None;
  ColorRef backColor = 0;  // under the mark
};

std::u16string_view labelOf(const PaintContext& context, const CellJob& job, const XString& labelColumn) {
  if (labelColumn.empty()) return {};
  XValue& value = context.scratch.text.value;
  context.model.link.valueByName(job.row.row.number, labelColumn, value);
  formatValue(job.column.view, value, context.model.eval, context.scratch.label);
  return context.scratch.label;
}

// The mark's place; the margin on its side makes room for it.
Rect placeMark(Glyph mark, const Rect& cell, DrawStyle& style) {
  const std::int32_t width = glyphSize(mark).width;
  std::int32_t left = addClamped(cell.left, glyphGap);
  switch (sideOf(style.align)) {
    case Side::Left:
      style.leftMargin = width + 2 * glyphGap;
      break;
    case Side::Right:
      left = subClamped(cell.right, glyphGap + width);
      style.rightMargin = width + 2 * glyphGap;
      break;
    case Side::Center:
      left = addClamped(cell.left, cell.width() / 2 - width / 2);
      break;
  }
  return glyphRect(mark, cell, left);
}

void paintMarkCell(const PaintContext& context, const CellJob& job, const MarkCell& cell) {
  const std::u16string_view label = labelOf(context, job, cell.labelColumn);
  DrawStyle style(job.column.view);
  if (!label.empty() && (style.align & align::center) != 0) {
    style.align = (style.align & ~align::center) | align::left;
  }
  const Glyph mark = isOff(job.text) ? cell.off : cell.on;
  const Rect markRect = placeMark(mark, job.rect, style);
  drawCell(context.target(), style, job.rect, label, job.clipLeft);
  drawGlyph(context.canvas, mark, markRect, cell.backColor, job.clipLeft);
}

}  // namespace

bool isOff(std::u16string_view value) { return equalNoCase(value, u"F") || value.starts_with(u'0'); }

void paintCheckCell(const PaintContext& context, const CellJob& job) {
  const ChildSpec& child = job.column.child;
  const bool active = context.model.settings.Enable && child.isEditable(context.model.eval);
  paintMarkCell(
      context, job,
      {child.checkText, child.checkBitmapOn, child.checkBitmapOff, active ? screen().window : screen().face});
}

void paintRadioCell(const PaintContext& context, const CellJob& job) {
  const ChildSpec& child = job.column.child;
  paintMarkCell(context, job, {child.radioText, child.radioBitmapOn, child.radioBitmapOff, screen().window});
}

}  // namespace tessera
