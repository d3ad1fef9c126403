#include "rows/outline_sequence.h"

namespace tessera {

OutlineEntry OutlineSequence::at(std::int32_t position) const {
  std::int32_t outer = 0;
  const Block* block = root_.get();
  while (true) {
    outer += block->add;
    const std::int32_t before = rowsOf(block->before);
    if (position < before) {
      block = block->before.get();
    } else if (position < before + block->count) {
      OutlineEntry entry = block->entries[static_cast<std::size_t>(position - before)];
      entry.hidden += outer;
      return entry;
    } else {
      position -= before + block->count;
      block = block->behind.get();
    }
  }
}

std::int32_t OutlineSequence::shownBefore(std::int32_t position) const {
  std::int32_t shown = 0;
  std::int32_t outer = 0;
  for (const Block* block = root_.get(); block && position > 0;) {
    outer += block->add;
    const std::int32_t before = rowsOf(block->before);
    if (position < before) {
      block = block->before.get();
      continue;
    }
    shown += shownOf(block->before, outer);
    const std::int32_t own = std::min(position - before, block->count);
    shown += static_cast<std::int32_t>(
        std::count_if(block->entries.begin(), block->entries.begin() + own,
                      [outer](const OutlineEntry& entry) { return entry.hidden + outer == 0; }));
    position -= before + block->count;
    block = block->behind.get();
  }
  return shown;
}

std::int32_t OutlineSequence::nthShown(std::int32_t n) const {
  std::int32_t base = 0;
  std::int32_t outer = 0;
  const Block* block = n >= 1 && n <= shownOf(root_, 0) ? root_.get() : nullptr;
  while (block) {
    outer += block->add;
    const std::int32_t before = shownOf(block->before, outer);
    if (n <= before) {
      block = block->before.get();
      continue;
    }
    n -= before;
    base += rowsOf(block->before);
    for (std::int32_t index = 0; index < block->count; ++index) {
      if (block->entries[static_cast<std::size_t>(index)].hidden + outer == 0 && --n == 0)
        return base + index;
    }
    base += block->count;
    block = block->behind.get();
  }
  return -1;
}

std::int32_t OutlineSequence::firstUpTo(const Tree& tree, std::int32_t level, std::int32_t from) {
  if (!tree || from >= tree->rows || tree->all.lowestLevel > level) return -1;
  const std::int32_t before = rowsOf(tree->before);
  const std::int32_t inFront = firstUpTo(tree->before, level, from);
  if (inFront >= 0) return inFront;
  if (tree->own.lowestLevel <= level) {
    for (std::int32_t index = std::max(from - before, 0); index < tree->count; ++index) {
      if (tree->entries[static_cast<std::size_t>(index)].level <= level) return before + index;
    }
  }
  const std::int32_t here = before + tree->count;
  const std::int32_t found = firstUpTo(tree->behind, level, std::max(from - here, 0));
  return found < 0 ? -1 : here + found;
}

std::int32_t OutlineSequence::lastUpTo(const Tree& tree, std::int32_t level, std::int32_t behind) {
  if (!tree || behind <= 0 || tree->all.lowestLevel > level) return -1;
  const std::int32_t before = rowsOf(tree->before);
  const std::int32_t here = before + tree->count;
  const std::int32_t found = lastUpTo(tree->behind, level, behind - here);
  if (found >= 0) return here + found;
  if (tree->own.lowestLevel <= level) {
    for (std::int32_t index = std::min(behind - before, tree->count) - 1; index >= 0; --index) {
      if (tree->entries[static_cast<std::size_t>(index)].level <= level) return before + index;
    }
  }
  return lastUpTo(tree->before, level, std::min(behind, before));
}

void OutlineSequence::addHidden(Tree& tree, std::int32_t first, std::int32_t behind, std::int32_t delta) {
  if (!tree || first >= behind || behind <= 0 || first >= tree->rows) return;
  if (first <= 0 && behind >= tree->rows) {
    tree->add += delta;
    tree->all.leastHidden += delta;
    return;
  }
  const std::int32_t before = rowsOf(tree->before);
  const std::int32_t here = before + tree->count;
  addHidden(tree->before, first, behind, delta);
  for (std::int32_t index = std::max(first, before); index < std::min(behind, here); ++index) {
    tree->entries[static_cast<std::size_t>(index - before)].hidden += delta;
  }
  addHidden(tree->behind, first - here, behind - here, delta);
  sumOwn(*tree);
  sumAll(*tree);
}

std::int32_t OutlineSequence::firstIn(const Tree& tree, RowState state, std::int32_t from) {
  if (!tree || from >= tree->rows || (tree->all.states & bitOf(state)) == 0) return -1;
  const std::int32_t before = rowsOf(tree->before);
  const std::int32_t inFront = firstIn(tree->before, state, from);
  if (inFront >= 0) return inFront;
  if ((tree->own.states & bitOf(state)) != 0) {
    for (std::int32_t index = std::max(from - before, 0); index < tree->count; ++index) {
      if (tree->entries[static_cast<std::size_t>(index)].state == state) return before + index;
    }
  }
  const std::int32_t here = before + tree->count;
  const std::int32_t found = firstIn(tree->behind, state, std::max(from - here, 0));
  return found < 0 ? -1 : here + found;
}

void OutlineSequence::setState(Block& block, std::int32_t position, RowState state) {
  const std::int32_t before = rowsOf(block.before);
  if (position < before) {
    setState(*block.before, position, state);
  } else if (position < before + block.count) {
    block.entries[static_cast<std::size_t>(position - before)].state = state;
    sumOwn(block);
  } else {
    setState(*block.behind, position - before - block.count, state);
  }
  sumAll(block);
}

void OutlineSequence::append(std::span<const OutlineEntry> entries) {
  while (!entries.empty()) {
    const std::size_t count = std::min<std::size_t>(entries.size(), capacity);
    root_ = join(std::move(root_), blockOf(entries.first(count)));
    entries = entries.subspan(count);
  }
}

void OutlineSequence::insert(std::int32_t position, std::span<const OutlineEntry> entries) {
  auto [front, back] = split(std::move(root_), position);
  root_ = std::move(front);
  append(entries);
  root_ = join(std::move(root_), std::move(back));
}

void OutlineSequence::erase(std::int32_t first, std::int32_t behind) {
  auto [rest, back] = split(std::move(root_), behind);
  auto [front, gone] = split(std::move(rest), first);
  root_ = join(std::move(front), std::move(back));
}

void OutlineSequence::Summary::include(const Summary& other) {
  lowestLevel = std::min(lowestLevel, other.lowestLevel);
  if (other.leastHidden < leastHidden) leastCount = 0;
  if (other.leastHidden <= leastHidden) leastCount += other.leastCount;
  leastHidden = std::min(leastHidden, other.leastHidden);
  states |= other.states;
}

void OutlineSequence::sumOwn(Block& block) {
  block.own = {};
  std::for_each_n(block.entries.begin(), block.count, [&block](const OutlineEntry& entry) {
    block.own.include({entry.level, entry.hidden, 1, bitOf(entry.state)});
  });
}

void OutlineSequence::sumAll(Block& block) {
  block.rows = rowsOf(block.before) + block.count + rowsOf(block.behind);
  block.all = block.own;
  if (block.before) block.all.include(block.before->all);
  if (block.behind) block.all.include(block.behind->all);
  block.all.leastHidden += block.add;
}

// What must hold before the nodes below get another one above them.
void OutlineSequence::pushDown(Block& block) {
  const std::int32_t add = std::exchange(block.add, 0);
  if (add == 0) return;
  std::for_each_n(block.entries.begin(), block.count, [add](OutlineEntry& entry) { entry.hidden += add; });
  block.own.leastHidden += add;
  for (Block* below : {block.before.get(), block.behind.get()}) {
    if (!below) continue;
    below->add += add;
    below->all.leastHidden += add;
  }
}

std::pair<OutlineSequence::Tree, OutlineSequence::Tree> OutlineSequence::split(Tree tree,
                                                                               std::int32_t position) {
  if (!tree) return {};
  pushDown(*tree);
  const std::int32_t before = rowsOf(tree->before);
  if (position <= before) {
    auto [front, back] = split(std::move(tree->before), position);
    tree->before = std::move(back);
    sumAll(*tree);
    return {std::move(front), std::move(tree)};
  }
  if (position >= before + tree->count) {
    auto [front, back] = split(std::move(tree->behind), position - before - tree->count);
    tree->behind = std::move(front);
    sumAll(*tree);
    return {std::move(tree), std::move(back)};
  }
  auto tail = std::make_unique<Block>();
  tail->priority = tree->priority;
  tail->behind = std::move(tree->behind);
  tail->count = before + tree->count - position;
  tree->count = position - before;
  std::copy_n(tree->entries.begin() + tree->count, tail->count, tail->entries.begin());
  for (Block* half : {tree.get(), tail.get()}) {
    sumOwn(*half);
    sumAll(*half);
  }
  return {std::move(tree), std::move(tail)};
}

OutlineSequence::Tree OutlineSequence::link(Tree front, Tree back) {
  if (!front || !back) return front ? std::move(front) : std::move(back);
  if (front->priority >= back->priority) {
    pushDown(*front);
    front->behind = link(std::move(front->behind), std::move(back));
    sumAll(*front);
    return front;
  }
  pushDown(*back);
  back->before = link(std::move(front), std::move(back->before));
  sumAll(*back);
  return back;
}

// As link(), but two blocks that meet become one if they fit.
OutlineSequence::Tree OutlineSequence::join(Tree front, Tree back) {
  if (!front || !back) return link(std::move(front), std::move(back));
  const Block* last = front.get();
  while (last->behind) last = last->behind.get();
  const Block* first = back.get();
  while (first->before) first = first->before.get();
  if (last->count + first->count <= capacity) {
    auto [head, rest] = split(std::move(back), first->count);
    pushDown(*head);
    appendToLast(*front, *head);
    back = std::move(rest);
  }
  return link(std::move(front), std::move(back));
}

void OutlineSequence::appendToLast(Block& block, const Block& more) {
  pushDown(block);
  if (block.behind) {
    appendToLast(*block.behind, more);
  } else {
    std::copy_n(more.entries.begin(), more.count, block.entries.begin() + block.count);
    block.count += more.count;
    sumOwn(block);
  }
  sumAll(block);
}

OutlineSequence::Tree OutlineSequence::blockOf(std::span<const OutlineEntry> entries) {
  random_ ^= random_ << 13;
  random_ ^= random_ >> 17;
  random_ ^= random_ << 5;
  auto block = std::make_unique<Block>();
  block->priority = random_;
  block->count = static_cast<std::int32_t>(entries.size());
  std::copy(entries.begin(), entries.end(), block->entries.begin());
  sumOwn(*block);
  sumAll(*block);
  return block;
}

}  // namespace tessera
