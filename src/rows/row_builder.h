// Arranges the rows of the data set.

#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "binding/data_link.h"
#include "config/grid_config.h"
#include "rows/group_states.h"
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

  struct Rebuilt {
    bool moved = false;  // some row has another place, or none
    std::optional<ErrorCode> error;
  };
  // As build(), but nothing happens where all rows stand as the data set has them, and what is open or closed
  // stays so: in a tree by row number, in groups as `states` say. What must hold: not in a plain grid.
  Rebuilt rebuild(const GroupStates* states);
  // The level that the data set gives a row.
  std::int32_t levelOf(Row row) const;

 private:
  struct Arrangement {
    ColumnPosition treeColumn = nullptr;  // null: the rows stay as they are
    GroupLevels groups;
    std::vector<std::int32_t> levels;
    std::optional<ErrorCode> error;
  };

  Arrangement read() const;
  void readTree(Arrangement& found) const;
  void readGroups(Arrangement& found) const;
  void arrange(const Arrangement& found);
  bool stand(const Arrangement& found) const;
  // The one tree column, or what is wrong with it.
  std::optional<ErrorCode> findTreeColumn(ColumnPosition& found) const;
};

}  // namespace tessera
