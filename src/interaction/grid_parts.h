// The parts that a control is composed of.

#pragma once

#include "binding/data_link.h"
#include "binding/image_cache.h"
#include "config/grid_config.h"
#include "config/grid_settings.h"
#include "expr/expression_engine.h"
#include "geometry/focus_model.h"
#include "geometry/grid_frame.h"
#include "geometry/page_loader.h"
#include "geometry/page_view.h"
#include "geometry/scroll_bars.h"
#include "interaction/editor_model.h"
#include "interaction/grid_token.h"
#include "interaction/mouse_model.h"
#include "interaction/row_echoes.h"
#include "platform/window.h"
#include "rows/row_builder.h"

namespace tessera {

// Owned by the control. The controllers and the control work on it; everything below takes just the parts
// that it needs.
struct GridParts {
  DataLink link;  // first, so that the components are let go of last
  GridSettings settings;
  GridConfig config;
  ImageCache images;
  RowTree rows;
  GridMetrics metrics;
  PageView page;
  FocusModel focus;
  EditorModel editor;
  MouseModel mouse;
  ExpressionEngine expressions;
  EvalState eval;
  std::uint64_t structure = 0;  // as GridToken says
  std::uint64_t numbering = 0;
  std::int32_t drawHolds = 0;  // nothing is painted while there are any
  std::int32_t readings = 0;   // columns and rows stay as they are while there are any
  bool refreshDue = false;     // something was to be made anew meanwhile
  RowEchoes echoes;            // of the grid's own changes
  bool rowsStale = false;      // others changed rows that were not arranged anew
  bool rowsFit = true;         // the rows could be arranged as the columns and the data set ask
  Window* window = nullptr;    // between the window's creation and its destruction

  GridToken token() const { return {structure, numbering, window, link.binding()}; }
  GridFrame frame() const {
    Size client;
    if (window) client = window->clientSize();
    return frameOf(config, settings, metrics, window ? &client : nullptr);
  }
  RowBuilder rowBuilder() { return {config, link, rows}; }
  PageLoader loader(const GridFrame& frame) {
    return {config.columns, metrics, page, rows, focus, link, frame};
  }
  // Recomputes the bars of `which` (bar_bit); nothing without a window. A bar that comes or goes changes the
  // room that the other one is computed from.
  void updateBars(std::int32_t which) {
    if (window && (which & bar_bit::horizontal)) {
      const GridFrame now = frame();
      updateHorizontalBar({config.columns, page, focus, now}, settings, *window);
    }
    if (window && (which & bar_bit::vertical)) updateVerticalBar(page, frame(), rows, settings, *window);
  }
  // The columns stand right of the indicator.
  void makeRoomForIndicator() {
    metrics.makeRoomForIndicator(config.columns, config.indicator.effectiveWidth());
    focus.followColumn();
  }
  void applyBorder() {
    if (window) window->setBorder(static_cast<WindowBorder>(config.borderStyle));
  }
};

}  // namespace tessera
