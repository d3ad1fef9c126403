// The subtotal rows that a data set makes for its groups.

#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include <tessera/xvalue.h>

#include "components/column_store.h"
#include "components/row_order.h"
#include "components/totals.h"

namespace tessera {

struct GroupKey {
  std::int32_t level = 0;   // what GetLevel gives for its subtotal rows
  std::int32_t column = 0;  // from 0; -1: no such column
  bool operator==(const GroupKey&) const = default;
};

// "2:REGION,1:CITY", the outermost group first; blanks do not count. Empty when an item has no colon, a level
// below 1, or the text is empty.
std::vector<GroupKey> parseSubsum(std::u16string_view text, const ColumnStore& store);

// Keeps one line for each subtotal row, by depth and then by row, so that the groups around a row are found
// by binary search. Which rows belong to a group is fixed by build(): the rows between its subtotal row and
// the one before of the same or an outer depth. Writing a key cell therefore moves no row until the next
// build. Sums are made when they are asked for and kept until a cell of the group changes. Rows are numbered
// from 0, depths from 1 (the outermost group).
class Subtotals {
 public:
  // Without keys, or with one whose column does not exist, there are no subtotal rows.
  void setKeys(std::vector<GroupKey> keys);
  bool active() const { return !keys_.empty(); }
  const std::vector<GroupKey>& keys() const { return keys_; }
  std::int32_t levelOfDepth(std::int32_t depth) const {
    return keys_[static_cast<std::size_t>(depth - 1)].level;
  }
  // 0 for a level that no key has.
  std::int32_t depthOfLevel(std::int32_t level) const;

  // Puts a subtotal row after each run of equal keys in place of the subtotal rows that stand there.
  void build(const ColumnStore& store, RowOrder& order);

  // After a data row came into `row`.
  void rowInserted(std::int32_t row);
  // After the data row left `row` of `order`: its group's subtotal rows leave too when they have no row left.
  // Gives how many rows went with it, all of them from `row` on.
  std::int32_t rowErased(std::int32_t row, std::int32_t record, RowOrder& order);
  // The sums over this data row are stale.
  void rowChanged(std::int32_t row);

  // The nearest subtotal row of this depth or an outer one: at or after `row`, or before it. -1 without one.
  std::int32_t subtotalAfter(std::int32_t row, std::int32_t depth) const;
  std::int32_t subtotalBefore(std::int32_t row, std::int32_t depth) const;
  // The record that the keys of a subtotal row are read from.
  std::int32_t keyRecord(std::int32_t row, std::int32_t depth) const { return line(row, depth).keyRecord; }

  // The cell that a subtotal row shows: its own and the outer keys, sums of the other number columns.
  void value(std::int32_t row, std::int32_t depth, std::int32_t column, const ColumnStore& store,
             const DataRows& rows, XValue& result);

  bool selected(std::int32_t row, std::int32_t depth) const { return line(row, depth).selected; }
  void select(std::int32_t row, std::int32_t depth, bool on);

 private:
  struct Line {
    std::int32_t row = 0;
    std::int32_t keyRecord = 0;
    std::int32_t sums = -1;  // place in sums_ in steps of the column count; -1: never asked for
    bool stale = true;
    bool selected = false;
  };
  using Lines = std::vector<Line>;

  std::int32_t innermost() const { return static_cast<std::int32_t>(keys_.size()); }
  Lines& linesOf(std::int32_t depth) { return lines_[static_cast<std::size_t>(depth - 1)]; }
  const Lines& linesOf(std::int32_t depth) const { return lines_[static_cast<std::size_t>(depth - 1)]; }
  const Line& line(std::int32_t row, std::int32_t depth) const;
  void shift(std::int32_t fromRow, std::int32_t by);
  void refresh(Line& line, std::int32_t depth, const ColumnStore& store, const DataRows& rows);

  std::vector<GroupKey> keys_;
  std::vector<Lines> lines_;  // as many as keys
  std::vector<Total> sums_;
};

}  // namespace tessera
