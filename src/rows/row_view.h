// What a painter needs to know of one row's place in the tree.

#pragma once

#include <cstdint>

#include "rows/row.h"

namespace tessera {

enum class RowState : std::int32_t { Leaf = 1, Expanded = 2, Collapsed = 3 };

// A copy, good until the rows change.
struct RowView {
  Row row;
  std::int32_t level = 0;  // depth from 1; in a plain grid 0 everywhere
  RowState state = RowState::Leaf;
  std::int32_t groupColumn = 0;  // dataset column that a group row shows in the tree column
  // Bit L: the row itself (L is its level) or its ancestor of level L has a sibling further down. Levels
  // above 63 count as having none.
  std::uint64_t goesOn = 0;
  bool isFirst = false;  // no row stands above it

  bool hasSiblingBelow(std::int32_t atLevel) const {
    return atLevel >= 0 && atLevel < 64 && (goesOn >> atLevel & 1) != 0;
  }
};

}  // namespace tessera
