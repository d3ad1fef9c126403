// Which groups are open, whatever becomes of their rows.

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <unordered_set>

#include "binding/data_link.h"
#include "rows/row_tree.h"

namespace tessera {

// Groups are known by the texts of their keys, from the outermost one inwards. Only those that are not as
// groups start are held, so that a grid in which few were opened or closed costs little.
class GroupStates {
 public:
  // `expanded`: how groups start.
  GroupStates(const RowTree& rows, const DataLink& link, bool expanded);

  // For groups built anew, of these levels.
  void restore(RowTree& rows, const DataLink& link, std::span<const std::int32_t> levels) const;

 private:
  RowState other_;  // than they start with
  std::unordered_set<std::u16string> paths_;
};

}  // namespace tessera
