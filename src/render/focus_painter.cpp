#include "render/focus_painter.h"

#include <algorithm>
#include <utility>

#include "cells/cell_kinds.h"
#include "geometry/hit_test.h"

namespace tessera {
namespace {

// What a tint or a focus rectangle leaves free of an area: `x`, `y` on its left and top, `width`, `height` of
// its size. The cell's border stays visible.
struct Inset {
  std::int32_t x, y, width, height;
};

// One inset for each kind of border: the single line, the sunken edge, and any other.
struct InsetTable {
  Inset line, sunken, other;

  constexpr const Inset& of(std::int32_t borderStyle) const {
    if (borderStyle == border::line) return line;
    return borderStyle == border::sunkenInner ? sunken : other;
  }
};

constexpr InsetTable rowTint{{0, 0, 2, 2}, {2, 2, 4, 4}, {2, 2, 5, 5}};
constexpr InsetTable indicatorTint{{2, 1, 4, 3}, {1, 1, 2, 2}, {1, 1, 3, 3}};
constexpr InsetTable headerTint{{1, 1, 3, 3}, {1, 1, 2, 2}, {1, 1, 3, 3}};
constexpr InsetTable cellTint{{1, 1, 2, 2}, {2, 2, 4, 4}, {2, 2, 5, 5}};
// Of the focus rectangle: `x`, `y` from the left and top, `width`, `height` from the right and bottom.
constexpr InsetTable focusInset{{0, 0, 1, 1}, {1, 1, 1, 1}, {1, 1, 2, 2}};

class FocusPainter {
 public:
  FocusPainter(const PaintContext& context, PaintResult& result)
      : context_(context),
        model_(context.model),
        frame_(context.model.frame),
        dataRect_(context.dataRect()),
        alpha_(alpha()),
        result_(result) {}

  void paintRowMode() const {
    if (model_.focus.SelectedRows.empty() || frame_.rowHeight <= 0) return;
    const std::int32_t width = rowWidth();
    const std::int32_t borderStyle =
        model_.config.columns.empty() ? border::none : model_.config.columns.tail()->value().view.borderStyle;
    const std::vector<Row>& page = model_.page.VisibleRows;
    for (std::size_t index = 0; index < page.size(); ++index) {
      if (!context_.scratch.selected[index]) continue;
      const Rect row = rowRect(static_cast<std::int32_t>(index), width);
      if (row.top >= dataRect_.bottom) return;
      tint(row, rowTint.of(borderStyle));
      tintIndicator(row);
      if (page[index] == model_.focus.SelectedRows.front()) drawFocusRect(row, focusInset.of(borderStyle));
    }
  }

  void paintCellMode() const {
    if (!model_.focus.FocusRow || !model_.focus.FocusColumn) return;
    const ColumnRecord& column = model_.focus.FocusColumn->value();
    // What is painted next begins with the last row of the page, whatever has the focus.
    const std::int32_t lastRow = std::exchange(model_.eval.ExprRow, model_.focus.FocusRow.number);
    tintHeader(column);
    const bool inView = paintFocusCell(column);
    model_.eval.ExprRow = lastRow;
    if (!inView && column.child.isPopupEdit() && model_.editorOpen) {
      result_.editorPlace.reset();
      result_.parkEditor = true;
    }
  }

 private:
  std::uint8_t alpha() const {
    const std::int32_t rate = model_.settings.SelectedColorRate;
    return model_.focus.state == FocusState::Outside ? static_cast<std::uint8_t>(rate) : alphaOfPercent(rate);
  }

  // The part of the columns that the page shows, from the client's left side.
  std::int32_t rowWidth() const {
    std::int32_t width = 0;
    for (const ColumnRecord& column : model_.config.columns) width = std::max(width, column.view.rect.right);
    return std::min(width, dataRect_.width());
  }

  Rect rowRect(std::int32_t index, std::int32_t right) const {
    const std::int32_t top = frame_.rowTop(index);
    return {frame_.indicatorWidth, top, right, std::min(addClamped(top, frame_.rowHeight), dataRect_.bottom)};
  }

  void tint(const Rect& area, const Inset& inset) const {
    const std::int32_t left = addClamped(area.left, inset.x);
    const std::int32_t top = addClamped(area.top, inset.y);
    const Rect tinted{left, top, addClamped(left, subClamped(area.width(), inset.width)),
                      addClamped(top, subClamped(area.height(), inset.height))};
    if (!tinted.empty()) context_.canvas.blend(tinted, model_.settings.SelectedColor, alpha_);
  }

  void tintIndicator(const Rect& row) const {
    tint({0, row.top, frame_.indicatorWidth, row.bottom},
         indicatorTint.of(model_.config.indicator.borderStyle));
  }

  void tintHeader(const ColumnRecord& column) const {
    if (!model_.settings.ViewHeader) return;
    Rect header = column.header.rect;
    header.left = std::max(header.left, frame_.clipLeft(column));
    tint(header, headerTint.of(column.header.borderStyle));
  }

  void drawFocusRect(const Rect& area, const Inset& inset) const {
    if (!model_.settings.FocusRect) return;
    const Rect rect{addClamped(area.left, inset.x), addClamped(area.top, inset.y),
                    subClamped(area.right, inset.width), subClamped(area.bottom, inset.height)};
    if (!rect.empty()) context_.canvas.focusRect(rect);
  }

  CellLayout layoutFocusCell(const ColumnRecord& column, std::int32_t index) const {
    const Row row = model_.focus.FocusRow;
    return layoutCell(
        {.column = column,
         .tree = model_.config.tree,
         .cell = frame_.wholeCell(column, index),
         .clipLeft = frame_.clipLeft(column),
         .bottomLimit = dataRect_.bottom,
         .row = model_.rows.view(row),
         .showsButton = model_.link.level(row.number) <= 0 && showsButton(column, model_.eval)});
  }

  // False when nothing of the focus cell is in view.
  bool paintFocusCell(const ColumnRecord& column) const {
    const std::int32_t index = model_.page.VisibleIndex(model_.focus.FocusRow);
    if (index < 0 || frame_.rowHeight <= 0) return false;
    const Rect cell = cellRect(frame_, column, index);
    if (cell.top >= dataRect_.bottom) return false;
    tintIndicator(rowRect(index, 0));
    if (cell.left >= cell.right) return false;
    const CellLayout layout = layoutFocusCell(column, index);
    const CellPart& button = layout.button;
    const bool hasBox = model_.editorOpen && column.child.isPopupEdit();
    const bool boxFills = hasBox && button.glyph == Glyph::None;
    if (boxFills || (hasBox && !button.drawn.empty())) result_.editorPlace = layout.editor;
    if (boxFills) return true;
    drawGlyph(context_.canvas, button.glyph, button.drawn, screen().face, layout.visible.left);
    const Rect& body = layout.body;
    if (body.left >= body.right) return false;
    tint(body, cellTint.of(column.view.borderStyle));
    drawFocusRect(body, focusInset.of(column.view.borderStyle));
    return true;
  }

  const PaintContext& context_;
  const PaintModel& model_;
  const GridFrame& frame_;
  Rect dataRect_;
  std::uint8_t alpha_;
  PaintResult& result_;
};

}  // namespace

void paintFocus(const PaintContext& context, PaintResult& result) {
  const FocusPainter painter(context, result);
  if (context.model.focus.CellMode) {
    painter.paintCellMode();
  } else {
    painter.paintRowMode();
  }
}

}  // namespace tessera
