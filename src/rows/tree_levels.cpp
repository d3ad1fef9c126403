#include "rows/tree_levels.h"

#include "shared/change_type.h"

namespace tessera {
namespace {

// 0 for what is no whole number.
std::int32_t levelOf(const XValue& value) {
  if (value.type() == VT_I4) return value.asInt();
  XValue whole;
  return changeType(value, VT_I4, whole) == S_OK ? whole.asInt() : 0;
}

}  // namespace

TreeLevels readTreeLevels(const DataLink& link, const XString& levelColumn, std::int32_t before,
                          std::int32_t upTo, std::int32_t lastLevel) {
  TreeLevels result;
  const std::int32_t column = link.columnIndex(levelColumn);
  if (column <= 0) {
    result.error = ErrorCode::NoTreeLevelColumn;
    return result;
  }
  if (upTo > before) result.levels.reserve(static_cast<std::size_t>(upTo - before));
  XValue value;
  for (std::int32_t done = before; done < upTo; ++done) {
    link.value(done + 1, column, value);
    const std::int32_t level = levelOf(value);
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
