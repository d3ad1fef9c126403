#include "render/paint_pipeline.h"

#include <algorithm>

#include "render/band_painters.h"
#include "render/column_painter.h"
#include "render/focus_painter.h"
#include "render/indicator_painter.h"

namespace tessera {
namespace {

void fillBackground(const PaintContext& context) {
  const PaintModel& model = context.model;
  const GridFrame& frame = model.frame;
  const BackgroundRecord& background = model.config.background;
  context.canvas.fill({0, 0, frame.client.width, frame.client.height},
                      background.effectiveBackColor(model.eval));
  std::int32_t right = 0;
  for (const ColumnRecord& column : model.config.columns) right = std::max(right, column.view.rect.right);
  const Rect table{frame.indicatorWidth, frame.headerBand, std::min(right, frame.client.width),
                   frame.client.height};
  drawCell(context.target(), DrawStyle(background), table, {}, 0);
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

void paintSummaryBand(const PaintContext& context) {
  const PaintModel& model = context.model;
  if (model.frame.summary == SummaryBand::None || !model.link.dataSet()) return;
  const std::int32_t top =
      model.frame.summary == SummaryBand::Bottom ? context.dataRect().bottom : model.frame.headerBand;
  for (const ColumnRecord& column : model.config.columns) {
    if (column.viewVisible && reachesIn(context, column)) paintSummaryCell(context, column, top);
  }
}

// Which rows of the page are selected. Thousands of rows may be: each is looked up once among those of the
// page.
void markSelectedRows(const PaintContext& context) {
  const std::vector<RowNode*>& page = context.model.page.VisibleRows;
  PaintScratch& scratch = context.scratch;
  scratch.selected.assign(page.size(), false);
  if (context.model.focus.SelectedRows.empty()) return;
  scratch.pageOrder.clear();
  for (std::size_t index = 0; index < page.size(); ++index)
    scratch.pageOrder.emplace_back(page[index], index);
  std::sort(scratch.pageOrder.begin(), scratch.pageOrder.end());
  for (const RowNode* node : context.model.focus.SelectedRows) {
    const auto place = std::lower_bound(scratch.pageOrder.begin(), scratch.pageOrder.end(),
                                        std::pair<const RowNode*, std::size_t>(node, 0));
    if (place != scratch.pageOrder.end() && place->first == node) scratch.selected[place->second] = true;
  }
}

}  // namespace

PaintResult PaintPipeline::paint(Canvas& canvas, const PaintModel& model) {
  PaintResult result;
  if (!model.settings.Draw || model.settings.ColumnInfo.empty()) return result;
  const PaintContext context{canvas, model, scratch_};
  markSelectedRows(context);
  fillBackground(context);
  paintRows(context);
  paintHeaderBand(context);
  paintSummaryBand(context);
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
