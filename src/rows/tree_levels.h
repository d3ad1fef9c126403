// The outline levels of rows, as a data set tells them.

#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "binding/data_link.h"
#include "shared/grid_services.h"

namespace tessera {

struct TreeLevels {
  std::vector<std::int32_t> levels;  // of the rows up to the one at fault
  std::optional<ErrorCode> error;
};

// The level of a row alone, by a column of the data set; 0 for what is no whole number.
std::int32_t treeLevelOf(const DataLink& link, std::int32_t levelColumn, std::int32_t row);

// Levels from a column of the data set, which reads like an outline: a row may go down one level at most and
// up by any number. For the rows behind `before` up to `upTo`, the first of them following a row of level
// `lastLevel` (0: nothing stands before it). Texts count as the whole numbers that they say.
TreeLevels readTreeLevels(const DataLink& link, const XString& levelColumn, std::int32_t before,
                          std::int32_t upTo, std::int32_t lastLevel);

}  // namespace tessera
