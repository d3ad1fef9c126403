// A row of the grid's row tree.

#pragma once

#include <cstdint>

namespace tessera {

enum class RowState : std::int32_t { Leaf = 1, Expanded = 2, Collapsed = 3 };

// Holds no cell data. Nodes belong to their RowTree and keep their address until they are removed or the tree
// is reset.
struct RowNode {
  RowNode* parent = nullptr;  // null only for the root
  std::int32_t row = 0;       // 1-based dataset row; 0 for the root
  std::int32_t level = 0;     // depth; in a plain grid 0 everywhere
  RowState state = RowState::Leaf;
  std::int32_t groupColumn = 0;  // dataset column that a group row shows in the tree column
};

// The dataset row of a node, 0 for null.
inline std::int32_t RowNumber(const RowNode* node) { return node ? node->row : 0; }

}  // namespace tessera
