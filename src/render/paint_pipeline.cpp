#include "render/paint_pipeline.h"

#include <algorithm>
#include <utility>

#include "cells/cell_kinds.h"
#include "cells/scratch_surface.h"
#include "render/band_painters.h"
#include "render/column_painter.h"
#include "render/focus_painter.h"
#include "render/indicator_painter.h"

namespace tessera {
namespace {

// Gives the colour that the whole client area then has.
ColorRef fillBackground(const PaintContext& context, Canvas& canvas) {
  const PaintModel& model = context.model;
  const GridFrame& frame = model.frame;
  const BackgroundRecord& background = model.config.background;
  const ColorRef color = background.effectiveBackColor(model.eval);
  canvas.fill({0, 0, frame.client.width, frame.client.height}, color);
  std::int32_t right = 0;
  for (const ColumnRecord& column : model.config.columns) right = std::max(right, column.view.rect.right);
  const Rect table{frame.indicatorWidth, frame.headerBand, std::min(right, frame.client.width),
                   frame.client.height};
  drawCell({canvas, model.eval, color}, DrawStyle(background), table, {}, 0);
  return color;
}

// Over a background image cells are blended: the image must lie under a band, and not the row that reaches
// into it. `row` is the one that the background was evaluated with.
void restoreBackground(const PaintContext& context, const Rect& band, std::int32_t row) {
  if (context.model.config.background.imageMode == image_mode::solid || band.empty()) return;
  Canvas& surface = scratchSurface(context.canvas, context.scratch.cells.surface);
  const std::int32_t present = std::exchange(context.model.eval.ExprRow, row);
  fillBackground(context, surface);
  context.model.eval.ExprRow = present;
  context.canvas.blitSurface(band, surface, band.left, band.top);
}

bool reachesIn(const PaintContext& context, const ColumnRecord& column) {
  const std::int32_t right = context.dataRect().right;
  const std::int32_t clipLeft = context.model.frame.clipLeft(column);
  const auto outside = [right, clipLeft](const Rect& span) {
    return span.left >= right || span.right <= clipLeft;
  };
  return !outside(column.header.rect) || !outside(column.view.rect);
}

// Follows what the columns paint, from left to right as most grids have them: cells beside all that is
// painted already stand on the background's own colour and need not fill it again.
class Ground {
 public:
  // `color` is the client area's.
  Ground(const PaintContext& context, ColorRef color) : context_(context) {
    const BackgroundRecord& background = context.model.config.background;
    // An expression may give the table another colour than the client.
    const bool isPlain = background.imageMode == image_mode::solid &&
                         background.borderStyle == border::none &&
                         !background.isDynamic(DynamicSlot::BackColor);
    if (isPlain) color_ = color;
  }

  // To be asked once a column, in the order of painting.
  std::optional<ColorRef> under(const ColumnRecord& column) {
    const Rect& view = column.view.rect;
    const bool inside = staysInside(column);
    const bool clean = inside && std::max(view.left, context_.model.frame.clipLeft(column)) >= paintedTo_;
    paintedTo_ = inside ? std::max(paintedTo_, view.right) : INT32_MAX;
    return clean ? color_ : std::nullopt;
  }

 private:
  // Whether no cell of the column leaves a mark beyond its own rectangle, but for the border line that it
  // shares with its left and upper neighbour, nor meets another cell of the column.
  bool staysInside(const ColumnRecord& column) const {
    const auto& view = column.view;
    return kindOf(column).isText && !column.hasTree && column.groups.empty() && view.sortMark == 0 &&
           std::min({view.leftMargin, view.topMargin, view.rightMargin, view.bottomMargin}) >= 0 &&
           view.rect.top >= 0 && view.rect.bottom <= context_.model.frame.rowHeight;
  }

  const PaintContext& context_;
  std::optional<ColorRef> color_;
  std::int32_t paintedTo_ = INT32_MIN;  // nothing is painted from here on
};

// `ground` is the colour of the client area.
void paintRows(const PaintContext& context, ColorRef ground) {
  if (!context.model.link.dataSet()) return;
  Ground tracker(context, ground);
  for (const ColumnRecord& column : context.model.config.columns) {
    if (!column.viewVisible || !reachesIn(context, column)) continue;
    paintColumnCells(context, column, tracker.under(column));
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
  // In a window lower than both bands the header stays.
  const Rect band{model.frame.indicatorWidth, std::max(top, model.frame.headerBand), model.frame.client.width,
                  addClamped(top, model.frame.rowHeight)};
  restoreBackground(context, band, backgroundRow);
  for (const ColumnRecord& column : model.config.columns) {
    if (column.viewVisible && reachesIn(context, column)) paintSummaryCell(context, column, top);
  }
}

// Where the rows of the page stand in the tree, and which of them are selected.
void lookAtRows(const PaintContext& context) {
  const std::vector<Row>& page = context.model.page.VisibleRows;
  context.model.rows.view(page, context.scratch.rows);
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
  lookAtRows(context);
  const std::int32_t backgroundRow = model.eval.ExprRow;
  paintRows(context, fillBackground(context, canvas));
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
