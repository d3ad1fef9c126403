// What the scroll bars and the wheel do.

#pragma once

#include <cstdint>

#include "interaction/grid_parts.h"
#include "shared/grid_services.h"

namespace tessera {

// Numbers are those of the scroll messages, for both bars; other codes do nothing.
enum class ScrollCode : std::int32_t {
  LineBack = 0,  // left, up
  LineOn = 1,    // right, down
  PageBack = 2,
  PageOn = 3,
  ThumbPosition = 4,
  ThumbTrack = 5,
};

// The focus stays where it is: its cell may leave the page.
class ScrollController {
 public:
  ScrollController(GridParts& parts, GridServices& services) : parts_(parts), services_(services) {}

  void hscroll(ScrollCode code);
  void vscroll(ScrollCode code);
  // Below 1: towards the user, further down the rows. How far is the system's setting, a page at most.
  void wheel(std::int32_t delta);

 private:
  // Columns to the right, rows down; below 0 back.
  void moveColumns(std::int32_t steps);
  void moveRows(std::int32_t rows);

  GridParts& parts_;
  GridServices& services_;
};

}  // namespace tessera
