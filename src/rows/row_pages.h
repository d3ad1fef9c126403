// The nodes of a plain grid, made when they are asked for.

#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <unordered_map>

#include "rows/row_node.h"

namespace tessera {

// Ten million plain rows differ in nothing but their number, so nodes exist only in the pages that somebody
// has looked at. A node keeps its address until clear().
class RowPages {
 public:
  static constexpr std::int32_t pageRows = 64;

  // The node of `row` (1 or more) below `parent`.
  RowNode* node(std::int32_t row, RowNode* parent);
  void clear() { pages_.clear(); }
  std::size_t pageCount() const { return pages_.size(); }

 private:
  using Page = std::array<RowNode, pageRows>;
  std::unordered_map<std::int32_t, std::unique_ptr<Page>> pages_;
};

}  // namespace tessera
