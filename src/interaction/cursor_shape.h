// Which cursor the mouse shows.

#pragma once

#include "geometry/hit_test.h"
#include "platform/window.h"

namespace tessera {

struct CursorScene {
  const GridFrame& frame;
  const ColumnList& columns;
  const GridSettings& settings;
  EvalState& eval;  // its row is the hit's afterwards
};

// `hit` is what lies at `at`; `canDrag` tells that a press there could start a drag.
Cursor cursorShape(const CursorScene& scene, const Hit& hit, Point at, bool canDrag);

}  // namespace tessera
