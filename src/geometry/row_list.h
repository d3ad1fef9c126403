// Rows in an order of their own that can be asked for a single one.

#pragma once

#include <cstddef>
#include <initializer_list>
#include <vector>

namespace tessera {

struct RowNode;

// Reads like a vector. The nodes are never looked into: they may have ended. Millions of rows may stand here,
// and painting asks for each row of the page whether it does: holds() takes O(log n) after a sort, which
// push_back(), assign() and removeIf() make necessary again, but not putFirst(), remove() and erase().
class RowList {
 public:
  using Nodes = std::vector<RowNode*>;
  using const_iterator = Nodes::const_iterator;

  RowList() = default;
  RowList(std::initializer_list<RowNode*> nodes) : nodes_(nodes) {}
  operator const Nodes&() const { return nodes_; }

  bool empty() const { return nodes_.empty(); }
  std::size_t size() const { return nodes_.size(); }
  const_iterator begin() const { return nodes_.begin(); }
  const_iterator end() const { return nodes_.end(); }
  RowNode* front() const { return nodes_.front(); }

  bool holds(const RowNode* node) const;

  void push_back(RowNode* node);
  void assign(Nodes nodes);
  // `node` becomes the first and stands there once.
  void putFirst(RowNode* node);
  // Every place of `node`.
  void remove(const RowNode* node);
  void erase(const_iterator place);
  template <class Predicate>
  void removeIf(Predicate predicate) {
    std::erase_if(nodes_, predicate);
    byAddress_.clear();
  }
  void clear();

 private:
  // Sorting pays from here on.
  static constexpr std::size_t shortList = 64;

  void sortAddresses() const;

  Nodes nodes_;
  mutable std::vector<const RowNode*>
      byAddress_;  // nodes_ in the order of their addresses, or empty: unsorted
};

}  // namespace tessera
