// The tree view of a widget library with the same rows.

#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace tessera {

class OutlinePeer {
 public:
  virtual ~OutlinePeer() = default;
  virtual void expandAll() = 0;
  virtual void collapseAll() = 0;
  // The first row of the third level; with a repaint.
  virtual void toggle() = 0;
};

// `levels` in the order of a tree whose parents come first. Null where the library is not there.
std::unique_ptr<OutlinePeer> makeTreeView(std::vector<std::int8_t> levels);

}  // namespace tessera
