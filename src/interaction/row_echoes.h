// What the data set tells of rows while the grid itself changes them.

#pragma once

#include <cstdint>

namespace tessera {

// Counted up, never down; such news is not carried out.
struct RowEchoes {
  std::uint64_t inserted = 0;
  std::uint64_t deleted = 0;
  std::uint64_t reset = 0;
};

}  // namespace tessera
