#include "rows/tree_levels.h"

#include "shared/change_type.h"

namespace tessera {
std::int32_t treeLevelOf(const DataLink& link, std::int32_t levelColumn, std::int32_t row) {
  XValue value;
  link.value(row, levelColumn, value);
  if (value.type() == VT_I4) return value.asInt();
  return changeType(value, VT_I4, value) == S_OK ? value.asInt() : 0;
}

TreeLevels readTreeLevels(const DataLink& link, const XString& levelColumn, std::int32_t before,
                          std::int32_t upTo, std::int32_t lastLevel) {
  TreeLevels result;
  const std::int32_t column = link.columnIndex(levelColumn);
  if (column <= 0) {
    result.error = ErrorCode::NoTreeLevelColumn;
    return result;
  }
  if (upTo > before) result.levels.reserve(static_cast<std::size_t>(upTo - before));
  for (std::int32_t done = before; done < upTo; ++done) {
    const std::int32_t level = treeLevelOf(link, column, done + 1);
    if (level < 1 || level > lastLevel + 1) {
      result.error = ErrorCode::TreeLevelValue;
      return result;
    }
    result.levels.push_back(level);
    lastLevel = level;
  }
  return result;
}

}  // namespace tessera
