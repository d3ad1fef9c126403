#include <algorithm>

#include "config/format_value.h"
#include "render/cell_painters.h"
#include "render/scratch_surface.h"
#include "shared/compare.h"

namespace tessera {
namespace {

std::u16string_view barTextOf(const PaintContext& context, const CellJob& job) {
  if (job.column.child.barText.empty()) return job.text;
  XValue& value = context.scratch.text.value;
  context.model.link.valueByName(job.row.row.number, job.column.child.barText, value);
  formatValue(job.column.view, value, context.model.eval, context.scratch.label);
  return context.scratch.label;
}

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

}  // namespace

// The text keeps its place and changes its colour where the bar covers it: the whole cell is drawn once more
// in the bar's colours, and the filled part of that picture is copied over the cell. The bar itself is solid,
// even where the cell lets a background image through.
void paintBarCell(const PaintContext& context, const CellJob& job) {
  const ChildSpec& child = job.column.child;
  const std::u16string_view text = barTextOf(context, job);
  DrawStyle style(job.column.view);
  drawCell(context.target(), style, job.rect, text, job.clipLeft);

  Rect filled = filledPart(style.inner(job.rect), child.barAlign, percentOf(child, job.text));
  filled.left = std::max(filled.left, job.clipLeft);
  const Size size = context.canvas.size();
  filled = intersect(filled, {0, 0, size.width, size.height});
  if (filled.empty()) return;

  Canvas& surface = scratchSurface(context);
  style.textColor = child.barColor;
  style.backColor = child.barBackColor;
  if ((style.imageMode & image_mode::blended) != 0) style.imageMode = image_mode::solid;
  if (style.imageMode != image_mode::solid) surface.fill(filled, screen().window);
  drawCell({surface, context.model.eval}, style, job.rect, text, job.clipLeft);
  context.canvas.blitSurface(filled, surface, filled.left, filled.top);
}

}  // namespace tessera
