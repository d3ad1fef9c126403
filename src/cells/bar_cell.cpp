// Bars whose length is the cell's value.

#include <algorithm>

#include "cells/cell_kinds.h"
#include "cells/scratch_surface.h"
#include "shared/compare.h"

namespace tessera {
namespace {

// How much of the bar is filled; 0 for none.
std::int32_t percentOf(const ChildSpec& child, std::u16string_view text) {
  if (child.barMin >= child.barMax) return 0;
  const std::int32_t value = std::min(parseInt(text), child.barMax);
  if (value <= child.barMin) return 0;
  return mulDiv(subClamped(value, child.barMin), 100, subClamped(child.barMax, child.barMin));
}

// The filled part of `inner`, empty for a bar that grows from nowhere.
Rect filledPart(const Rect& inner, std::int32_t barAlign, std::int32_t percent) {
  if (inner.empty()) return {};
  Rect filled = inner;
  switch (barAlign) {
    case align::left:
      filled.right = addClamped(inner.left, mulDiv(inner.width(), percent, 100));
      return filled;
    case align::right:
      filled.left = subClamped(inner.right, mulDiv(inner.width(), percent, 100));
      return filled;
    case align::top:
      filled.bottom = addClamped(inner.top, mulDiv(inner.height(), percent, 100));
      return filled;
    case align::bottom:
      filled.top = subClamped(inner.bottom, mulDiv(inner.height(), percent, 100));
      return filled;
    default:
      return {};
  }
}

// The text keeps its place and changes its colour where the bar covers it: the whole cell is drawn once more
// in the bar's colours, and the filled part of that picture is copied over the cell. The bar itself is solid,
// even where the cell lets a background image through.
void drawFilledPart(const CellTools& tools, const CellPlace& place, const Rect& filled,
                    std::u16string_view text) {
  const ColumnRecord& column = place.column;
  Canvas& surface = scratchSurface(tools.canvas, tools.scratch.surface);
  DrawStyle style(column.view);
  style.textColor = column.child.barColor;
  style.backColor = column.child.barBackColor;
  if ((style.imageMode & image_mode::blended) != 0) style.imageMode = image_mode::solid;
  if (style.imageMode != image_mode::solid) surface.fill(filled, screen().window);
  drawCell({surface, tools.texts.eval}, style, place.cell, text, place.clipLeft);
  tools.canvas.blitSurface(filled, surface, filled.left, filled.top);
}

bool paintBar(const CellTools& tools, const CellJob& job) {
  const ColumnRecord& column = job.place.column;
  const ChildSpec& child = column.child;
  std::u16string_view text = job.text;
  if (!child.barText.empty()) {
    textOfColumn(tools.texts, column, job.place.row.row.number, child.barText, tools.scratch.label);
    text = tools.scratch.label;
  }
  const DrawStyle style(column.view);
  drawCell(tools.target(), style, job.place.cell, text, job.place.clipLeft);

  Rect filled = filledPart(style.inner(job.place.cell), child.barAlign, percentOf(child, job.text));
  filled.left = std::max(filled.left, job.place.clipLeft);
  const Size size = tools.canvas.size();
  filled = intersect(filled, {0, 0, size.width, size.height});
  if (!filled.empty()) drawFilledPart(tools, job.place, filled, text);
  return true;
}

std::optional<std::int32_t> barWidth(const WidthJob& job) { return job.textWidth(); }

}  // namespace

const CellFace barFace{nullptr, paintBar, barWidth};

}  // namespace tessera
