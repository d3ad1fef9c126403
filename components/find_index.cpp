#include "components/find_index.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <utility>

namespace tessera {
namespace {

std::uint32_t hashOf(std::string_view text) {
  return static_cast<std::uint32_t>(std::hash<std::string_view>{}(text));
}

}  // namespace

FindIndex::FindIndex(const Column& column, const RowOrder& order)
    : column_(column), order_(order), slots_(16) {
  for (std::int32_t row = 0; row < order.count(); ++row) put(row);
}

std::string_view FindIndex::textOf(std::int32_t row, NumberBuffer& buffer) const {
  return column_.shown(order_.at(row), buffer);
}

std::size_t FindIndex::slotOf(std::string_view text, std::uint32_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  NumberBuffer buffer;
  std::size_t at = hash & mask;
  for (; slots_[at].row != freeSlot; at = (at + 1) & mask) {
    const Slot& slot = slots_[at];
    if (slot.row >= 0 && slot.hash == hash && textOf(slot.row, buffer) == text) break;
  }
  return at;
}

void FindIndex::put(std::int32_t row) {
  if (order_.at(row) < 0) return;
  if ((taken_ + 1) * 10 > slots_.size() * 7) grow();
  NumberBuffer buffer;
  const std::string_view text = textOf(row, buffer);
  const std::uint32_t hash = hashOf(text);
  Slot& slot = slots_[slotOf(text, hash)];
  if (slot.row == freeSlot) {
    slot = {row, hash};
    ++taken_;
  } else if (row < slot.row) {
    slot.row = row;
  }
}

void FindIndex::grow() {
  std::vector<Slot> old = std::move(slots_);
  std::erase_if(old, [](const Slot& slot) { return slot.row < 0; });
  slots_.assign(std::bit_ceil(std::max<std::size_t>(16, (old.size() + 1) * 2)), Slot());
  taken_ = old.size();
  const std::size_t mask = slots_.size() - 1;
  for (const Slot& slot : old) {
    std::size_t at = slot.hash & mask;
    while (slots_[at].row != freeSlot) at = (at + 1) & mask;
    slots_[at] = slot;
  }
}

std::int32_t FindIndex::find(std::string_view text) {
  const auto pending = searchFrom_.empty() ? searchFrom_.end() : searchFrom_.find(std::string(text));
  if (pending == searchFrom_.end()) {
    const std::int32_t row = slots_[slotOf(text, hashOf(text))].row;
    return row >= 0 ? row : -1;
  }
  NumberBuffer buffer;
  for (std::int32_t row = pending->second; row < order_.count(); ++row) {
    if (order_.at(row) < 0 || textOf(row, buffer) != text) continue;
    searchFrom_.erase(pending);
    put(row);
    return row;
  }
  pending->second = order_.count();
  return -1;
}

void FindIndex::beforeChange(std::int32_t row) {
  NumberBuffer buffer;
  const std::string_view text = textOf(row, buffer);
  std::int32_t& first = slots_[slotOf(text, hashOf(text))].row;
  if (first != row) return;
  first = usedSlot;
  searchFrom_.emplace(text, row + 1);
}

void FindIndex::afterChange(std::int32_t row) {
  NumberBuffer buffer;
  if (!searchFrom_.empty()) {
    const auto pending = searchFrom_.find(std::string(textOf(row, buffer)));
    if (pending != searchFrom_.end()) {
      if (row >= pending->second) return;
      searchFrom_.erase(pending);
    }
  }
  put(row);
}

}  // namespace tessera
