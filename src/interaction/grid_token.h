// Tells one state of a grid from another.

#pragma once

#include <cstdint>

namespace tessera {

class DataSetControl;
class Window;

// Taken before the host is let run and compared afterwards: while it is equal, columns are those of before,
// row numbers name the rows of before (rows may have come at the end), and window and data set are the same.
struct GridToken {
  std::uint64_t structure = 0;  // raised whenever columns are made anew
  std::uint64_t numbering = 0;  // raised whenever row numbers name other rows, or none any more
  const Window* window = nullptr;
  std::uint64_t binding = 0;  // of the data set: addresses are used again

  friend bool operator==(const GridToken&, const GridToken&) = default;
};

}  // namespace tessera
