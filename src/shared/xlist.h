// An ordered list with stable positions and pooled nodes.

#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <new>
#include <utility>

namespace tessera {

// Owns its values. A position is the address of a node and stays valid until its element is removed or the
// list is cleared, whatever is appended, removed or moved around it. Nodes come from blocks of ten; a removed
// element's node is used again before a new block is taken. Iterators take their successor before they show
// the element: the current element may be written to, moved or removed inside a loop, its successor may not
// be removed, and what is appended while the last element is current is not visited.
template <class T>
class XList {
 public:
  class Node {
   public:
    T& value() { return *std::launder(reinterpret_cast<T*>(storage_)); }
    const T& value() const { return *std::launder(reinterpret_cast<const T*>(storage_)); }

   private:
    friend class XList;
    Node* next_;
    Node* prev_;
    alignas(T) unsigned char storage_[sizeof(T)];
  };
  using Position = Node*;

  template <class Value, class NodePointer>
  class Iterator {
   public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using pointer = Value*;
    using reference = Value&;

    Iterator() = default;
    explicit Iterator(NodePointer node) : node_(node), next_(node ? XList::nextOf(node) : nullptr) {}
    Value& operator*() const { return node_->value(); }
    Value* operator->() const { return &node_->value(); }
    Iterator& operator++() {
      *this = Iterator(next_);
      return *this;
    }
    Iterator operator++(int) {
      Iterator before = *this;
      ++*this;
      return before;
    }
    bool operator==(const Iterator& other) const { return node_ == other.node_; }
    NodePointer position() const { return node_; }

   private:
    NodePointer node_ = nullptr;
    NodePointer next_ = nullptr;
  };
  using iterator = Iterator<T, Node*>;
  using const_iterator = Iterator<const T, const Node*>;

  static constexpr std::int32_t blockSize = 10;

  XList() = default;
  XList(const XList& other) : XList() { appendAll(other); }
  XList(XList&& other) noexcept { swap(other); }
  ~XList() { removeAll(); }
  XList& operator=(const XList& other) {
    if (this != &other) {
      removeAll();
      appendAll(other);
    }
    return *this;
  }
  XList& operator=(XList&& other) noexcept {
    if (this != &other) {
      removeAll();
      swap(other);
    }
    return *this;
  }

  std::int32_t count() const { return count_; }
  bool empty() const { return count_ == 0; }
  Position head() { return head_; }
  Position tail() { return tail_; }
  const Node* head() const { return head_; }
  const Node* tail() const { return tail_; }
  static Position nextOf(Position position) { return position->next_; }
  static const Node* nextOf(const Node* position) { return position->next_; }
  static Position prevOf(Position position) { return position->prev_; }

  Position addTail(T value) { return insertBefore(nullptr, std::move(value)); }
  Position addHead(T value) { return insertBefore(head_, std::move(value)); }
  // A null position appends.
  Position insertBefore(Position where, T value) {
    if (!freeNodes_) addBlock();
    Node* node = freeNodes_;
    ::new (static_cast<void*>(node->storage_)) T(std::move(value));
    freeNodes_ = node->next_;
    link(node, where);
    ++count_;
    return node;
  }
  void remove(Position position) {
    unlink(position);
    position->value().~T();
    position->next_ = freeNodes_;
    freeNodes_ = position;
    --count_;
  }
  // The element comes first; its position stays the same.
  void moveToHead(Position position) {
    if (position == head_) return;
    unlink(position);
    link(position, head_);
  }
  // Destroys the values and gives the blocks back.
  void removeAll() {
    for (Node* node = head_; node; node = node->next_) node->value().~T();
    head_ = tail_ = freeNodes_ = nullptr;
    count_ = 0;
    while (blocks_) delete std::exchange(blocks_, blocks_->next);
  }

  iterator begin() { return iterator(head_); }
  iterator end() { return iterator(); }
  const_iterator begin() const { return const_iterator(head_); }
  const_iterator end() const { return const_iterator(); }

  // Blocks taken so far, for tests of the pooling.
  std::int32_t blockCount() const {
    std::int32_t blocks = 0;
    for (Block* block = blocks_; block; block = block->next) ++blocks;
    return blocks;
  }

 private:
  struct Block {
    Block* next;
    Node nodes[blockSize];
  };

  void appendAll(const XList& other) {
    for (const T& value : other) addTail(value);
  }
  void swap(XList& other) noexcept {
    std::swap(head_, other.head_);
    std::swap(tail_, other.tail_);
    std::swap(count_, other.count_);
    std::swap(freeNodes_, other.freeNodes_);
    std::swap(blocks_, other.blocks_);
  }
  void addBlock() {
    auto* block = new Block;
    block->next = std::exchange(blocks_, block);
    for (Node& node : block->nodes) node.next_ = std::exchange(freeNodes_, &node);
  }
  void link(Node* node, Node* before) {
    node->next_ = before;
    node->prev_ = before ? before->prev_ : tail_;
    (node->prev_ ? node->prev_->next_ : head_) = node;
    (before ? before->prev_ : tail_) = node;
  }
  void unlink(Node* node) {
    (node->prev_ ? node->prev_->next_ : head_) = node->next_;
    (node->next_ ? node->next_->prev_ : tail_) = node->prev_;
  }

  Node* head_ = nullptr;
  Node* tail_ = nullptr;
  std::int32_t count_ = 0;
  Node* freeNodes_ = nullptr;
  Block* blocks_ = nullptr;
};

}  // namespace tessera
