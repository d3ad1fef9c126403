#include "render/paint_pipeline.h"

#include <algorithm>
#include <utility>

#include "render/band_painters.h"
#include "render/column_painter.h"
#include "render/focus_painter.h"
#include "render/indicator_painter.h"
#include "render/scratch_surface.h"

namespace tessera {
namespace {

void fillBackground(const PaintContext& context, Canvas& canvas) {
  const PaintModel& model = context.model;
  const GridFrame& frame = model.frame;
  const BackgroundRecord& background = model.config.background;
  canvas.fill({0, 0, frame.client.width, frame.client.height}, background.effectiveBackColor(model.eval));
  std::int32_t right = 0;
  for (const ColumnRecord& column : model.config.columns) right = std::max(right, column.view.rect.right);
  const Rect table{frame.indicatorWidth, frame.headerBand, std::min(right, frame.client.width),
                   frame.client.height};
  drawCell({canvas, model.eval}, DrawStyle(background), table, {}, 0);
}

// Over a background image cells are blended: the image must lie under a band, and not the row that reaches
// into it. `row` is the one that the background was evaluated with.
void restoreBackground(const PaintContext& context, const Rect& band, std::int32_t row) {
  if (context.model.config.background.imageMode == image_mode::solid || band.empty()) return;
  Canvas& surface = scratchSurface(context);
  const std::int32_t present = std::exchange(context.model.eval.ExprRow, row);
  fillBackground(context, surface);
  context.model.eval.ExprRow = present;
  context.canvas.blitSurface(band, surface, band.left, band.top);
}

bool reachesIn(const PaintContext& context, const ColumnRecord& column) {
  const std::int32_t right = context.dataRect().right;
  const std::int32_t clipLeft = context.clipLeft(column);
  const auto outside = [right, clipLeft](const Rect& span) {
    return span.left >= right || span.right <= clipLeft;
  };
  return !outside(column.header.rect) || !outside(column.view.rect);
}

void paintRows(const PaintContext& context) {
  if (!context.model.link.dataSet()) return;
  for (const ColumnRecord& column : context.model.config.columns) {
    if (column.viewVisible && reachesIn(context, column)) paintColumnCells(context, column);
  }
}

void paintHeaderBand(const PaintContext& context) {
  if (!context.model.settings.ViewHeader) return;
  for (const ColumnRecord& column : context.model.config.columns) {
    if (reachesIn(context, column)) paintHeaderCell(context, column);
  }
}

// `backgroundRow` as restoreBackground() takes it.
void paintSummaryBand(const PaintContext& context, std::int32_t backgroundRow) {
  const PaintModel& model = context.model;
  if (model.frame.summary == SummaryBand::None || !model.link.dataSet()) return;
  const std::int32_t top =
      model.frame.summary == SummaryBand::Bottom ? context.dataRect().bottom : model.frame.headerBand;
  const Rect band{model.frame.indicatorWidth, top, model.frame.client.width,
                  addClamped(top, model.frame.rowHeight)};
  restoreBackground(context, band, backgroundRow);
  for (const ColumnRecord& column : model.config.columns) {
    if (column.viewVisible && reachesIn(context, column)) paintSummaryCell(context, column, top);
  }
}

// Which rows of the page are selected.
void markSelectedRows(const PaintContext& context) {
  const std::vector<RowNode*>& page = context.model.page.VisibleRows;
  std::vector<bool>& selected = context.scratch.selected;
  selected.resize(page.size());
  for (std::size_t index = 0; index < page.size(); ++index) {
    selected[index] = context.model.focus.SelectedRows.holds(page[index]);
  }
}

}  // namespace

PaintResult PaintPipeline::paint(Canvas& canvas, const PaintModel& model) {
  PaintResult result;
  if (!model.settings.Draw || model.settings.ColumnInfo.empty()) return result;
  const PaintContext context{canvas, model, scratch_};
  markSelectedRows(context);
  const std::int32_t backgroundRow = model.eval.ExprRow;
  fillBackground(context, canvas);
  paintRows(context);
  paintHeaderBand(context);
  paintSummaryBand(context, backgroundRow);
  paintIndicator(context);
  paintFocus(context, result);
  result.painted = true;
  return result;
}

void fillWindowColor(Canvas& canvas) {
  const Size size = canvas.size();
  canvas.fill({0, 0, size.width, size.height}, screen().window);
}

}  // namespace tessera
