#include "config/column_record.h"

#include <algorithm>

namespace tessera {

const GroupCell* ColumnRecord::groupOfLevel(std::int32_t level) const {
  const auto group = std::find_if(groups.begin(), groups.end(),
                                  [level](const GroupCell& cell) { return cell.level == level; });
  return group == groups.end() ? nullptr : &*group;
}

}  // namespace tessera
