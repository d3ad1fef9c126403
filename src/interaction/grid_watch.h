// Tells whether the grid is still the one that an operation began with.

#pragma once

#include <cstdint>

#include "interaction/grid_parts.h"
#include "shared/grid_services.h"

namespace tessera {

// The host runs inside every event and inside every call of the data set. While the watch holds, columns are
// those of before, and row numbers name the rows of before; rows may have come at the end.
class GridWatch {
 public:
  GridWatch(const GridParts& parts, const GridServices&) : parts_(parts), token_(parts.token()) {}

  bool holds() const { return parts_.token() == token_; }

 private:
  const GridParts& parts_;
  GridToken token_;
};

// No paint in between, whatever the host makes of the Draw property meanwhile.
class DrawHold {
 public:
  explicit DrawHold(GridParts& parts) : parts_(parts) { ++parts_.drawHolds; }
  ~DrawHold() { --parts_.drawHolds; }
  DrawHold(const DrawHold&) = delete;
  DrawHold& operator=(const DrawHold&) = delete;

 private:
  GridParts& parts_;
};

}  // namespace tessera
