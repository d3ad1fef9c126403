// What the mouse starts that goes beyond focus, editors and columns.

#pragma once

#include "geometry/hit_test.h"

namespace tessera {

// Drags and blocks are carried out elsewhere. The defaults are those of a grid that has none of them. Every
// operation may run events of the host.
class MouseGestures {
 public:
  virtual ~MouseGestures() = default;

  // Whether a press there would start a drag.
  virtual bool canDrag(const Hit&, Point) { return false; }
  // True when a drag ran: it is modal, and the press that started it is over.
  virtual bool tryDrag(const Hit&, Point) { return false; }

  // True when a block starts at the place where the button went down.
  virtual bool startBlock(Point) { return false; }
  // The pointer moved; true when the block changed.
  virtual bool stepBlock(Point) { return false; }
  // The button went up; true when the drawing of a block ended.
  virtual bool endBlock() { return false; }
  virtual void clearBlock() {}
};

}  // namespace tessera
