// What the painters of one paint share.

#pragma once

#include <vector>

#include "cells/cell_job.h"
#include "platform/canvas.h"
#include "render/paint_model.h"

namespace tessera {

// Buffers that a pipeline keeps from paint to paint: a paint that meets nothing new allocates nothing.
struct PaintScratch {
  CellScratch cells;
  XString cellText;
  std::vector<RowView> rows;   // of the page
  std::vector<bool> selected;  // row mode, one for each row of the page: stands in SelectedRows
};

struct PaintContext {
  Canvas& canvas;
  const PaintModel& model;
  PaintScratch& scratch;

  DrawTarget target() const { return {canvas, model.eval}; }
  TextSource texts() const { return {model.link, model.eval, scratch.cells.text}; }
  Rect dataRect() const { return model.frame.usableRect(true); }
};

}  // namespace tessera
