// Tells whether the grid is still the one that an operation began with.

#pragma once

#include <cstdint>

#include "interaction/grid_parts.h"
#include "shared/grid_services.h"

namespace tessera {

// The host runs inside every event and inside every call of the data set. While the watch holds, columns are
// those of before, and row numbers name the rows of before and no others. Nodes may have been made anew all
// the same: whoever needs one afterwards finds it again by its number.
class GridWatch {
 public:
  GridWatch(const GridParts& parts, const GridServices& services)
      : parts_(parts),
        services_(services),
        generation_(services.generation()),
        window_(parts.window),
        dataSet_(parts.link.dataSet()),
        numbering_(parts.numbering),
        rowCount_(parts.rows.displayCount()) {}

  bool holds() const { return rowsSince() == 0 && isSameGrid(); }
  // The same, but rows may have come at the end.
  bool holdsRows() const { return rowsSince() >= 0 && isSameGrid(); }

 private:
  // By the grid's own count: the data set's answer may bring news.
  std::int64_t rowsSince() const { return std::int64_t{parts_.rows.displayCount()} - rowCount_; }
  bool isSameGrid() const {
    return services_.generation() == generation_ && parts_.window == window_ &&
           parts_.link.dataSet() == dataSet_ && parts_.numbering == numbering_;
  }

  const GridParts& parts_;
  const GridServices& services_;
  std::uint64_t generation_;
  const Window* window_;
  const DataSetControl* dataSet_;
  std::uint64_t numbering_;
  std::int32_t rowCount_;
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
