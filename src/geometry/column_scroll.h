// Scrolling sideways.

#pragma once

#include <cstdint>

#include "geometry/focus_model.h"
#include "geometry/grid_frame.h"
#include "geometry/page_view.h"

namespace tessera {

// One step brings the next hidden column up to the zone start, or slides the first shown one out behind the
// zone. The columns outside the fixed zone and FocusLeft move; the results are pixels, 0 if nothing moved.
struct ColumnScroll {
  ColumnList& columns;
  PageView& page;
  FocusModel& focus;
  const GridFrame& frame;

  std::int32_t StepLeft();
  std::int32_t StepRight();
  // Scrolls until the column shows; one that is wider than the page shows its left end.
  void EnsureColumnVisible(const ColumnRecord& column);
  // How many distinct column lefts lie wholly inside the view now.
  std::int32_t PageColumns() const;

 private:
  void move(std::int32_t dx);
};

}  // namespace tessera
