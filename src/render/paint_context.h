// What the painters of one paint share.

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/canvas.h"
#include "render/cell_drawing.h"
#include "render/paint_model.h"
#include "rows/cell_text.h"

namespace tessera {

// Buffers that a pipeline keeps from paint to paint: a paint that meets nothing new allocates nothing.
struct PaintScratch {
  TextScratch text;
  XString cellText;
  XString label;                    // a second text of the same cell
  std::u16string mask;              // of a password
  std::vector<RowView> rows;        // of the page
  std::vector<bool> selected;       // row mode, one for each row of the page: stands in SelectedRows
  std::unique_ptr<Canvas> surface;  // as large as the canvas
};

struct PaintContext {
  Canvas& canvas;
  const PaintModel& model;
  PaintScratch& scratch;

  DrawTarget target() const { return {canvas, model.eval}; }
  TextSource texts() const { return {model.link, model.eval, scratch.text}; }
  Rect dataRect() const { return model.frame.usableRect(true); }
  // The leftmost x that a column's cells may touch.
  std::int32_t clipLeft(const ColumnRecord& column) const {
    const GridFrame& frame = model.frame;
    return frame.anyFixed && !column.header.fix ? frame.fixed.right : frame.indicatorWidth;
  }
};

// One cell of a data row on its way to its painter.
struct CellJob {
  const ColumnRecord& column;
  const RowView& row;
  Rect rect;
  std::int32_t clipLeft = 0;
  std::u16string_view text;
  std::optional<ColorRef> ground = {};  // as DrawTarget says
};

}  // namespace tessera
