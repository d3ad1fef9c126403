// Many rows that are held while others come and go.

#pragma once

#include <cstdint>
#include <vector>

#include "rows/rows_changed.h"

namespace tessera {

// Keeps naming the same rows by their present numbers; a change costs O(log k).
class FollowedRows {
 public:
  // Each row once, in an order of their own.
  explicit FollowedRows(const std::vector<Row>& rows);

  std::size_t size() const { return places_.size(); }
  // In the order that they were given in; noRow for one that went.
  Row at(std::size_t index) const;
  void renumber(const RowsChanged& change);

 private:
  // By place: the rows in the order of their numbers, which never changes.
  std::int32_t numberAt(std::size_t place) const;
  std::size_t firstFrom(std::int32_t number) const;
  void addFrom(std::size_t place, std::int32_t delta);

  std::vector<std::size_t> places_;   // in the order given
  std::vector<std::int32_t> given_;   // by place: the number at the start
  std::vector<bool> isGone_;          // by place
  std::vector<std::int32_t> shifts_;  // a Fenwick tree: what was added to the numbers from a place on
};

}  // namespace tessera
