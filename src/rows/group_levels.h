// The groups that a data set sums by, and the outline levels of its rows.

#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "binding/data_link.h"

namespace tessera {

struct GroupLevel {
  std::int32_t key = 0;          // what GetLevel gives for the subtotal rows of this group
  std::int32_t columnIndex = 0;  // dataset column that the group is keyed by; 0 or less for an unknown name
  XString columnName;

  bool operator==(const GroupLevel&) const = default;
};

// Groups from the outermost one inwards, so an element's place, from 1, is the level of its rows in the tree,
// and one more than their number the level of rows that sum nothing.
using GroupLevels = std::vector<GroupLevel>;

// "2:REGION,1:CITY": keys and names; blanks and tabs do not count. Nothing for an empty text, for one that
// holds the word "total" in any case, and for an item without a colon.
std::optional<GroupLevels> parseSubsumExpr(const XString& text, const DataLink& link);

// The level of a row alone.
std::int32_t groupLevelOf(const DataLink& link, const GroupLevels& groups, std::int32_t row);

// The level of each row; Outline::noLevel for one that stands in no group where it should. Subtotal rows
// stand behind the rows that they sum, so all is read from the last row backwards.
std::vector<std::int32_t> readGroupLevels(const DataLink& link, const GroupLevels& groups);

}  // namespace tessera
