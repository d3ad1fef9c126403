#include "geometry/page_view.h"

#include <algorithm>

namespace tessera {

namespace {

std::size_t places(std::int32_t capacity, std::int32_t more) {
  return static_cast<std::size_t>(std::max(std::max(capacity, 0) + more, 0));
}

}  // namespace

std::int32_t PageView::VisibleIndex(const RowNode* node) const {
  const auto found = std::find(VisibleRows.begin(), VisibleRows.end(), node);
  return found == VisibleRows.end() ? -1 : static_cast<std::int32_t>(found - VisibleRows.begin());
}

RowNode* PageView::VisibleAt(std::int32_t index) const {
  const auto place = static_cast<std::size_t>(index);
  return index >= 0 && place < VisibleRows.size() ? VisibleRows[place] : nullptr;
}

// `node` and the rows after it, until the list holds `size` of them.
void PageView::appendFrom(RowTree& rows, RowNode* node, std::size_t size) {
  for (; node && VisibleRows.size() < size; node = rows.NextRow(node)) VisibleRows.push_back(node);
}

// Rows before the first one at the head, until the list holds `size` of them.
void PageView::prependUpTo(RowTree& rows, std::size_t size) {
  if (VisibleRows.empty() || VisibleRows.size() >= size) return;
  const std::size_t old = VisibleRows.size();
  for (RowNode* node = rows.PreviousRow(VisibleRows.front()); node && VisibleRows.size() < size;
       node = rows.PreviousRow(node)) {
    VisibleRows.push_back(node);
  }
  // The new rows stand behind the old ones, nearest first; turning both round puts them in order.
  const auto added = VisibleRows.begin() + static_cast<std::ptrdiff_t>(old);
  std::reverse(added, VisibleRows.end());
  std::rotate(VisibleRows.begin(), added, VisibleRows.end());
}

void PageView::updateTopOrdinal(const RowTree& rows) {
  if (!VisibleRows.empty()) TopOrdinal = rows.ordinal(VisibleRows.front());
}

void PageView::RefillFrom(RowTree& rows, std::int32_t capacity, RowNode* node) {
  VisibleRows.clear();
  appendFrom(rows, node, places(capacity, 1));
  prependUpTo(rows, places(capacity, 0));
  updateTopOrdinal(rows);
}

void PageView::fillAround(RowTree& rows, std::int32_t capacity, RowNode* node) {
  VisibleRows.assign(1, node);
  prependUpTo(rows, places(capacity, 0));
  appendFrom(rows, rows.NextRow(node), places(capacity, 1));
  updateTopOrdinal(rows);
}

void PageView::EnsureRowVisible(RowTree& rows, std::int32_t capacity, RowNode* node) {
  if (!node) return;
  const std::int32_t index = VisibleIndex(node);
  if (index >= 0 && static_cast<std::size_t>(index) + 1 < VisibleRows.size()) return;
  const bool above = !VisibleRows.empty() && rows.isBefore(node, VisibleRows.front());
  VisibleRows.clear();
  if (above) {
    appendFrom(rows, node, places(capacity, 1));
  } else {
    appendFrom(rows, node, 2);
    prependUpTo(rows, VisibleRows.size() + places(capacity, -1));
  }
  updateTopOrdinal(rows);
}

void PageView::bringCurrent(RowTree& rows, std::int32_t capacity, RowNode* node) {
  if (VisibleIndex(node) >= 0) return;
  const std::size_t size = places(capacity, 1);
  if (RowNode* top = VisibleAt(0)) {
    const std::int64_t steps = static_cast<std::int64_t>(rows.ordinal(node)) - rows.ordinal(top);
    if (steps >= 0 && steps <= capacity - 1) {
      VisibleRows.clear();
      appendFrom(rows, top, size);
      return updateTopOrdinal(rows);
    }
  }
  VisibleRows.clear();
  appendFrom(rows, node, size - size / 2);
  prependUpTo(rows, size);
  appendFrom(rows, rows.NextRow(VisibleRows.back()), size);
  updateTopOrdinal(rows);
}

// Each step drops the first row and appends the next one; when the rows have run out one more drop stands, so
// that the last row shows wholly. Written as one jump: a thumb may move by millions of rows.
bool PageView::RowsDown(RowTree& rows, std::int32_t capacity, std::int32_t count) {
  if (VisibleRows.empty() || count < 1) return false;
  const std::int32_t below = std::max(0, rows.displayCount() - rows.ordinal(VisibleRows.back()));
  std::size_t size = VisibleRows.size();
  if (below == 0 && size <= places(capacity, 0)) return false;
  // A page of one row keeps it.
  const std::int32_t steps = std::min(std::min(count - 1, below) + 1, below + (size > 1 ? 1 : 0));
  if (steps < 1) return false;
  if (steps > below) --size;
  jumpTo(rows, TopOrdinal + steps, size);
  return true;
}

// Each step puts the row before at the head and drops the last one of a page that is more than full.
bool PageView::RowsUp(RowTree& rows, std::int32_t capacity, std::int32_t count) {
  if (VisibleRows.empty() || count < 1) return false;
  const std::int32_t steps = std::min(count, TopOrdinal - 1);
  if (steps < 1) return false;
  const std::size_t grown =
      std::min(VisibleRows.size() + static_cast<std::size_t>(steps), places(capacity, 1));
  jumpTo(rows, TopOrdinal - steps, std::max(VisibleRows.size(), grown));
  return true;
}

void PageView::jumpTo(RowTree& rows, std::int32_t topOrdinal, std::size_t size) {
  VisibleRows.clear();
  TopOrdinal = topOrdinal;
  appendFrom(rows, rows.nth(topOrdinal), size);
}

}  // namespace tessera
