#include "geometry/row_list.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace tessera {
namespace {

constexpr std::less<const RowNode*> byPlace;

}  // namespace

bool RowList::holds(const RowNode* node) const {
  if (nodes_.size() < shortList) return std::find(nodes_.begin(), nodes_.end(), node) != nodes_.end();
  if (byAddress_.empty()) sortAddresses();
  return std::binary_search(byAddress_.begin(), byAddress_.end(), node, byPlace);
}

// Trees make their nodes in order, so that the rows often stand sorted already.
void RowList::sortAddresses() const {
  byAddress_.assign(nodes_.begin(), nodes_.end());
  if (!std::is_sorted(byAddress_.begin(), byAddress_.end(), byPlace)) {
    std::sort(byAddress_.begin(), byAddress_.end(), byPlace);
  }
}

void RowList::push_back(RowNode* node) {
  nodes_.push_back(node);
  byAddress_.clear();
}

void RowList::assign(Nodes nodes) {
  nodes_ = std::move(nodes);
  byAddress_.clear();
}

void RowList::putFirst(RowNode* node) {
  remove(node);
  nodes_.insert(nodes_.begin(), node);
  if (byAddress_.empty()) return;
  byAddress_.insert(std::lower_bound(byAddress_.begin(), byAddress_.end(), node, byPlace), node);
}

void RowList::remove(const RowNode* node) {
  std::erase(nodes_, node);
  const auto [first, last] = std::equal_range(byAddress_.begin(), byAddress_.end(), node, byPlace);
  byAddress_.erase(first, last);
}

void RowList::erase(const_iterator place) {
  const auto sorted = std::lower_bound(byAddress_.begin(), byAddress_.end(), *place, byPlace);
  if (sorted != byAddress_.end()) byAddress_.erase(sorted);
  nodes_.erase(place);
}

void RowList::clear() {
  nodes_.clear();
  byAddress_.clear();
}

}  // namespace tessera
