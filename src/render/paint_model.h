// Everything that one paint reads.

#pragma once

#include "binding/data_link.h"
#include "binding/image_cache.h"
#include "config/grid_config.h"
#include "config/grid_settings.h"
#include "expr/eval_state.h"
#include "geometry/focus_model.h"
#include "geometry/grid_frame.h"
#include "geometry/page_view.h"

namespace tessera {

// References to the control's parts; a paint changes none of them but the row of `eval`.
struct PaintModel {
  const GridConfig& config;
  const GridSettings& settings;
  const GridFrame& frame;
  const PageView& page;
  const FocusModel& focus;
  const RowTree& rows;
  const DataLink& link;
  const ImageCache& images;
  EvalState& eval;
  bool editorOpen = false;  // the focus cell's edit window shows
};

}  // namespace tessera
