// Check marks and radio buttons, with or without a label.

#include "cells/cell_kinds.h"
#include "cells/glyphs.h"
#include "shared/compare.h"

namespace tessera {
namespace {

constexpr std::int32_t gap = 3;  // between mark and side, and between mark and label

// What differs between the two.
struct MarkFields {
  XString ChildSpec::*labelColumn;
  Glyph on;
  Glyph off;
  bool greysOut;  // its ground tells whether the mark can be changed
};
constexpr MarkFields checkFields{&ChildSpec::checkText, Glyph::CheckOn, Glyph::CheckOff, true};
constexpr MarkFields radioFields{&ChildSpec::radioText, Glyph::RadioOn, Glyph::RadioOff, false};

// A mark with a label never stands in the middle.
Side sideOfMark(const ColumnRecord& column, bool hasLabel) {
  const Side side = sideOf(column.view.align);
  return hasLabel && side == Side::Center ? Side::Left : side;
}

std::int32_t leftOfMark(Side side, const Rect& cell, std::int32_t width) {
  switch (side) {
    case Side::Right:
      return subClamped(subClamped(cell.right, gap), width);
    case Side::Center:
      return addClamped(cell.left, cell.width() / 2 - width / 2);
    case Side::Left:
      break;
  }
  return addClamped(cell.left, gap);
}

Rect pressedMark(Glyph glyph, Side side, const Rect& cell) {
  const std::int32_t width = glyphSize(glyph).width;
  Rect pressed = CellPart::ofGlyph(glyph, cell, leftOfMark(side, cell, width)).pressed;
  if (side == Side::Center) {
    pressed.left = subClamped(pressed.left, 1);
    pressed.right = addClamped(pressed.left, 2 * (width / 2 + 1));
  }
  return pressed;
}

template <const MarkFields& fields>
void layoutMark(const CellPlace& place, CellLayout& layout) {
  const ColumnRecord& column = place.column;
  const Glyph glyph = place.isOff ? fields.off : fields.on;
  const Side side = sideOfMark(column, place.hasLabel);
  const std::int32_t width = glyphSize(glyph).width;
  layout.mark = {glyph, glyphRect(glyph, layout.cell, leftOfMark(side, layout.cell, width)),
                 pressedMark(fields.on, sideOfMark(column, !(column.child.*fields.labelColumn).empty()),
                             layout.reachable)};
  if (place.hasLabel && (layout.align & align::center) != 0) {
    layout.align = (layout.align & ~align::center) | align::left;
  }
  if (side == Side::Left) layout.leftMargin = width + 2 * gap;
  if (side == Side::Right) layout.rightMargin = width + 2 * gap;
}

template <const MarkFields& fields>
bool paintMark(const CellTools& tools, const CellJob& job) {
  const ColumnRecord& column = job.place.column;
  XString& label = tools.scratch.label;
  textOfColumn(tools.texts, column, job.place.row.row.number, column.child.*fields.labelColumn, label);
  CellPlace place = job.place;
  place.isOff = isOff(job.text);
  place.hasLabel = !label.empty();
  const CellLayout layout = layoutCell(place);
  const bool active = !fields.greysOut || (tools.isEnabled && column.child.isEditable(tools.texts.eval));
  DrawStyle style(column.view);
  style.leftMargin = layout.leftMargin;
  style.rightMargin = layout.rightMargin;
  style.align = layout.align;
  drawCell(tools.target(), style, layout.cell, label, place.clipLeft);
  drawGlyph(tools.canvas, layout.mark.glyph, layout.mark.drawn, active ? screen().window : screen().face,
            place.clipLeft);
  return true;
}

template <const MarkFields& fields>
std::optional<std::int32_t> markWidth(const WidthJob& job) {
  const std::int32_t width = glyphSize(isOff(job.text) ? fields.off : fields.on).width + gap;
  textOfColumn(job.texts, job.column, job.row, job.column.child.*fields.labelColumn, job.text);
  return addClamped(width, job.textWidth());
}

}  // namespace

bool isOff(std::u16string_view value) { return equalNoCase(value, u"F") || value.starts_with(u'0'); }

const CellFace checkFace{layoutMark<checkFields>, paintMark<checkFields>, markWidth<checkFields>};
const CellFace radioFace{layoutMark<radioFields>, paintMark<radioFields>, markWidth<radioFields>};

}  // namespace tessera
