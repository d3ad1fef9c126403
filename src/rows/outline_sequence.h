// An order-statistics sequence of rows with levels.

#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>

#include "rows/row_view.h"

namespace tessera {

struct OutlineEntry {
  // The level of a row that has no place in the tree.
  static constexpr std::int32_t noLevel = INT32_MAX;
  // Added to `hidden` it hides a row for good.
  static constexpr std::int32_t forEver = 1 << 30;

  std::int32_t level = noLevel;  // from 1
  std::int32_t hidden = 0;       // collapsed ancestors; a row is shown when there is none
  RowState state = RowState::Leaf;
};

// Positions count from 0. The entries stand in blocks, the blocks in a balanced tree (a treap) whose nodes
// sum up what lies below them, so that every question and every change of a range takes O(log n), whatever
// the range. Questions never restructure: a change of a whole subtree is noted at its node and added up on
// the way down. 12 bytes an entry as built; neighbouring blocks are joined when they fit into one, so 24 at
// most after edits.
class OutlineSequence {
 public:
  std::int32_t size() const { return rowsOf(root_); }
  OutlineEntry at(std::int32_t position) const;
  // How many of the entries in front of `position` are shown.
  std::int32_t shownBefore(std::int32_t position) const;
  // The position of the nth shown entry, from 1; -1 when there are fewer.
  std::int32_t nthShown(std::int32_t n) const;
  // The first entry from `from` on, the last one in front of `behind`, of a level up to `level`; -1 without
  // one.
  std::int32_t firstUpTo(std::int32_t level, std::int32_t from) const {
    return firstUpTo(root_, level, from);
  }
  std::int32_t lastUpTo(std::int32_t level, std::int32_t behind) const {
    return lastUpTo(root_, level, behind);
  }

  // The first entry from `from` on in this state; -1 without one.
  std::int32_t firstIn(RowState state, std::int32_t from) const { return firstIn(root_, state, from); }

  void clear() { root_.reset(); }
  void append(std::span<const OutlineEntry> entries);
  // What stood at `position` comes behind them.
  void insert(std::int32_t position, std::span<const OutlineEntry> entries);
  void erase(std::int32_t first, std::int32_t behind);
  void setState(std::int32_t position, RowState state) { setState(*root_, position, state); }
  // For all entries from `first` up to, but not including, `behind`.
  void addHidden(std::int32_t first, std::int32_t behind, std::int32_t delta) {
    addHidden(root_, first, behind, delta);
  }
  // Calls change(OutlineEntry&) for all entries in order. Linear.
  template <class Change>
  void changeAll(Change change) {
    changeAll(root_, change);
  }
  // Calls visit(const OutlineEntry&) for all entries in order, whose `hidden` means nothing. Linear.
  template <class Visit>
  void visitAll(Visit visit) const {
    visitAll(root_, visit);
  }

 private:
  static constexpr std::int32_t capacity = 256;

  // What a question can skip a range of entries by.
  struct Summary {
    std::int32_t lowestLevel = INT32_MAX;
    std::int32_t leastHidden = INT32_MAX;
    std::int32_t leastCount = 0;  // entries with leastHidden
    std::uint32_t states = 0;     // bit RowState of each that occurs

    void include(const Summary& other);
  };
  struct Block;
  using Tree = std::unique_ptr<Block>;
  struct Block {
    Tree before;
    Tree behind;
    std::uint32_t priority = 0;  // none below a node has a higher one
    std::int32_t rows = 0;       // entries of this block and those below it
    std::int32_t count = 0;      // entries of this block
    std::int32_t add = 0;        // to be added to `hidden` of all of them
    Summary own;                 // of this block, without `add`
    Summary all;                 // of this block and those below it, with `add`
    std::array<OutlineEntry, capacity> entries;
  };

  static std::int32_t rowsOf(const Tree& tree) { return tree ? tree->rows : 0; }
  // `outer` is what stands at the nodes above.
  static std::int32_t shownOf(const Tree& tree, std::int32_t outer) {
    return tree && tree->all.leastHidden + outer == 0 ? tree->all.leastCount : 0;
  }
  static std::int32_t firstUpTo(const Tree& tree, std::int32_t level, std::int32_t from);
  static std::int32_t lastUpTo(const Tree& tree, std::int32_t level, std::int32_t behind);
  static std::int32_t firstIn(const Tree& tree, RowState state, std::int32_t from);
  static std::uint32_t bitOf(RowState state) { return 1u << static_cast<std::uint32_t>(state); }
  static void addHidden(Tree& tree, std::int32_t first, std::int32_t behind, std::int32_t delta);
  static void setState(Block& block, std::int32_t position, RowState state);
  template <class Change>
  static void changeAll(Tree& tree, Change& change);
  template <class Visit>
  static void visitAll(const Tree& tree, Visit& visit);

  static void sumOwn(Block& block);
  static void sumAll(Block& block);
  static void pushDown(Block& block);
  static std::pair<Tree, Tree> split(Tree tree, std::int32_t position);
  static Tree link(Tree front, Tree back);
  static Tree join(Tree front, Tree back);
  static void appendToLast(Block& block, const Block& more);
  Tree blockOf(std::span<const OutlineEntry> entries);

  Tree root_;
  std::uint32_t random_ = 1;
};

template <class Change>
void OutlineSequence::changeAll(Tree& tree, Change& change) {
  if (!tree) return;
  pushDown(*tree);
  changeAll(tree->before, change);
  std::for_each_n(tree->entries.begin(), tree->count, change);
  changeAll(tree->behind, change);
  sumOwn(*tree);
  sumAll(*tree);
}

template <class Visit>
void OutlineSequence::visitAll(const Tree& tree, Visit& visit) {
  if (!tree) return;
  visitAll(tree->before, visit);
  std::for_each_n(tree->entries.begin(), tree->count, visit);
  visitAll(tree->behind, visit);
}

}  // namespace tessera
