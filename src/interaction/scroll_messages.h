// What the scroll bars and the wheel do.

#pragma once

#include <cstdint>

#include "interaction/editor_controller.h"
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

// The focus stays where it is: its cell may leave the page. An open list, whose cell moves away under it,
// closes without a choice.
class ScrollController {
 public:
  ScrollController(GridParts& parts, GridServices& services, EditorController& editors)
      : parts_(parts), services_(services), editors_(editors) {}

  void hscroll(ScrollCode code);
  void vscroll(ScrollCode code);
  // Below 1: towards the user, further down the rows. How far is the system's setting, a page at most.
  void wheel(std::int32_t delta);

 private:
  // Columns to the right, rows down; below 0 back.
  void moveColumns(std::int32_t steps);
  void moveRows(std::int32_t rows);
  void hasMoved();

  GridParts& parts_;
  GridServices& services_;
  EditorController& editors_;
};

}  // namespace tessera
