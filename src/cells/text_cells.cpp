// Cells that show a text: plain ones, those with an edit box and those with a list.

#include "cells/cell_kinds.h"

namespace tessera {
namespace {

// Most cells are of this kind, and without its button the text stands where the record says.
bool paintText(const CellTools& tools, const CellJob& job) {
  const CellPlace& place = job.place;
  DrawStyle style(place.column.view);
  if (place.showsButton) style.rightMargin = layoutCell(place).rightMargin;
  drawCell({tools.canvas, tools.texts.eval, job.ground}, style, place.cell, job.text, place.clipLeft);
  return true;
}

std::optional<std::int32_t> textWidth(const WidthJob& job) { return job.textWidth(); }

// The box stands over the border at its left and top. A popup edit's leaves room for the button.
void layoutEdit(const CellPlace& place, CellLayout& layout) {
  if (place.column.child.subType != EditKind::Plain) {
    return placeButton(place, Glyph::PopupButton, layout);
  }
  layout.editor.right = subClamped(layout.editor.right, 1);
  layout.editor.bottom = subClamped(layout.editor.bottom, 1);
}

bool paintEdit(const CellTools& tools, const CellJob& job) {
  if ((job.place.column.child.inputType & input_type::password) == 0) return paintText(tools, job);
  tools.scratch.mask.assign(job.text.size(), u'*');
  return paintText(tools, {job.place, tools.scratch.mask, job.ground});
}

void layoutDrop(const CellPlace& place, CellLayout& layout) { placeButton(place, Glyph::DropButton, layout); }

}  // namespace

const CellFace plainFace{nullptr, paintText, textWidth};
const CellFace editFace{layoutEdit, paintEdit, textWidth};
const CellFace dropFace{layoutDrop, paintText, textWidth};

}  // namespace tessera
