// Arranges the rows of the data set.

#pragma once

#include <cstdint>
#include <optional>

#include "binding/data_link.h"
#include "config/grid_config.h"
#include "rows/row_tree.h"
#include "shared/grid_services.h"

namespace tessera {

// What is wrong comes back as the code to report. A column at fault leaves the rows as they were; a level
// that no outline can have leaves those in front of it.
struct RowBuilder {
  GridConfig& config;
  const DataLink& link;
  RowTree& rows;

  // All rows anew, in the mode that the configuration asks for.
  std::optional<ErrorCode> build();
  // The data set has `count` rows now, the new ones at its end; for a tree that has rows already.
  std::optional<ErrorCode> continueTree(std::int32_t count);

 private:
  std::optional<ErrorCode> buildTree();
  std::optional<ErrorCode> buildGroups();
  // The one tree column, or what is wrong with it.
  std::optional<ErrorCode> findTreeColumn(ColumnPosition& found) const;
};

}  // namespace tessera
