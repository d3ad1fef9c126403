// Which record stands in which row.

#pragma once

#include <cassert>
#include <cstdint>
#include <utility>
#include <vector>

namespace tessera {

// Rows are numbered from 0 here. An entry of 0 or above is a record; below 0 it is a subtotal row of the
// depth -entry. As long as row n holds record n nothing is stored.
class RowOrder {
 public:
  explicit RowOrder(std::int32_t count = 0) : count_(count) {}

  std::int32_t count() const { return count_; }
  std::int32_t at(std::int32_t row) const {
    assert(row >= 0 && row < count_);
    return entries_.empty() ? row : entries_[static_cast<std::size_t>(row)];
  }
  bool isIdentity() const { return entries_.empty(); }

  void insert(std::int32_t row, std::int32_t entry) {
    if (isIdentity() && row == count_ && entry == count_) {
      ++count_;
      return;
    }
    materialize();
    entries_.insert(entries_.begin() + row, entry);
    ++count_;
  }
  void erase(std::int32_t row) {
    if (isIdentity() && row == count_ - 1) {
      --count_;
      return;
    }
    materialize();
    entries_.erase(entries_.begin() + row);
    --count_;
  }
  void assign(std::vector<std::int32_t> entries) {
    entries_ = std::move(entries);
    count_ = static_cast<std::int32_t>(entries_.size());
    for (std::int32_t row = 0; row < count_; ++row)
      if (entries_[static_cast<std::size_t>(row)] != row) return;
    std::vector<std::int32_t>().swap(entries_);
  }
  // The row of an entry, -1 when there is none.
  std::int32_t rowOf(std::int32_t entry) const {
    if (isIdentity()) return entry >= 0 && entry < count_ ? entry : -1;
    for (std::int32_t row = 0; row < count_; ++row)
      if (entries_[static_cast<std::size_t>(row)] == entry) return row;
    return -1;
  }

 private:
  void materialize() {
    if (!isIdentity()) return;
    entries_.resize(static_cast<std::size_t>(count_));
    for (std::int32_t row = 0; row < count_; ++row) entries_[static_cast<std::size_t>(row)] = row;
  }

  std::vector<std::int32_t> entries_;  // empty: row n holds record n
  std::int32_t count_;
};

}  // namespace tessera
