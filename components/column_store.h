// The cells of a data set, column by column.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <tessera/data_set_control.h>
#include <tessera/xstring.h>
#include <tessera/xvalue.h>

#include "components/column.h"

namespace tessera {

// Records are numbered from 0 in the order in which they came, columns from 0 too. Hidden columns stand
// behind the visible ones and carry what a record is known by where it came from.
class ColumnStore {
 public:
  // What must hold: no two visible columns of one name, and no visible column after a hidden one.
  void addColumn(ColumnFormat format, bool hidden = false);

  std::int32_t columnCount() const { return visible_; }
  std::int32_t allColumnCount() const { return static_cast<std::int32_t>(columns_.size()); }
  Column& column(std::int32_t index) { return columns_[static_cast<std::size_t>(index)]; }
  const Column& column(std::int32_t index) const { return columns_[static_cast<std::size_t>(index)]; }
  // The index of the visible column of this name, else of the first one whose name differs in ASCII case
  // only; -1 when there is none.
  std::int32_t find(std::u16string_view name) const;

  std::int32_t recordCount() const { return records_; }
  // After every column got its cell: the record counts.
  void finishRecord() { ++records_; }
  // A record of empty cells, in the place of a released one if there is any; -1 when there is no number left.
  std::int32_t newRecord();
  // The record holds nothing and may be used again.
  void releaseRecord(std::int32_t record);

  std::size_t memoryBytes() const;

 private:
  struct NameHash {
    using is_transparent = void;
    std::size_t operator()(std::u16string_view name) const { return std::hash<std::u16string_view>{}(name); }
  };

  std::vector<Column> columns_;
  using Names = std::unordered_map<std::u16string, std::int32_t, NameHash, std::equal_to<>>;
  Names names_;
  Names lowerNames_;
  std::vector<std::int32_t> released_;
  std::int32_t visible_ = 0;
  std::int32_t records_ = 0;
};

}  // namespace tessera
