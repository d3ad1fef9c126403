// Finds the first row that shows a text in a column.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "components/column_store.h"
#include "components/row_order.h"

namespace tessera {

// A hash table of the distinct texts of one column, eight bytes a slot: each slot names the first row with
// its text, and the text itself stays in the column. Subtotal rows take no part. It must hear of every write
// to the column, and is thrown away when rows change their numbers.
class FindIndex {
 public:
  FindIndex(const Column& column, const RowOrder& order);

  // The first row (from 0) with this text, -1 when there is none.
  std::int32_t find(std::string_view text);
  // Before the cell in `row` changes, and after it did.
  void beforeChange(std::int32_t row);
  void afterChange(std::int32_t row);
  // So many first rows changed that building the table anew is cheaper than keeping it.
  bool isWorn() const { return searchFrom_.size() > 1024 + slots_.size() / 4; }

 private:
  static constexpr std::int32_t freeSlot = -1;
  static constexpr std::int32_t usedSlot = -2;  // held a row once: a search goes on behind it

  struct Slot {
    std::int32_t row = freeSlot;
    std::uint32_t hash = 0;
  };

  std::string_view textOf(std::int32_t row, NumberBuffer& buffer) const;
  // The slot of the text, or of the first place where it could be put.
  std::size_t slotOf(std::string_view text, std::uint32_t hash) const;
  void put(std::int32_t row);
  void grow();

  const Column& column_;
  const RowOrder& order_;
  std::vector<Slot> slots_;
  std::size_t taken_ = 0;  // slots that are not free
  // Texts whose first row changed: where the search for the next one must go on.
  std::unordered_map<std::string, std::int32_t> searchFrom_;
};

}  // namespace tessera
