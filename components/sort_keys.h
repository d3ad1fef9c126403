// The sort text of a data set and the stable sort by it.

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "components/column_store.h"

namespace tessera {

struct SortKey {
  std::int32_t column = 0;  // from 0
  bool descending = false;
  bool operator==(const SortKey&) const = default;
};

// "+COL,-COL"; a name without a sign sorts upwards, blanks around an item do not count. Where a name itself
// has a comma the longest text that names a column counts. Nothing when an item names no column.
std::optional<std::vector<SortKey>> parseSortKeys(std::u16string_view text, const ColumnStore& store);

// Stable: records that no key tells apart keep their order.
void sortRecords(std::span<std::int32_t> records, std::span<const SortKey> keys, const ColumnStore& store);

}  // namespace tessera
