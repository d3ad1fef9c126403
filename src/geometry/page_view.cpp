#include "geometry/page_view.h"

#include <algorithm>

namespace tessera {

namespace {

std::size_t places(std::int32_t capacity, std::int32_t more) {
  return static_cast<std::size_t>(std::max(std::max(capacity, 0) + more, 0));
}

}  // namespace

std::int32_t PageView::VisibleIndex(Row row) const {
  const auto found = std::find(VisibleRows.begin(), VisibleRows.end(), row);
  return found == VisibleRows.end() ? -1 : static_cast<std::int32_t>(found - VisibleRows.begin());
}

Row PageView::VisibleAt(std::int32_t index) const {
  const auto place = static_cast<std::size_t>(index);
  return index >= 0 && place < VisibleRows.size() ? VisibleRows[place] : noRow;
}

// `row` and the rows after it, until the list holds `size` of them.
void PageView::appendFrom(const RowTree& rows, Row row, std::size_t size) {
  for (; row && VisibleRows.size() < size; row = rows.NextRow(row)) VisibleRows.push_back(row);
}

// Rows before the first one at the head, until the list holds `size` of them.
void PageView::prependUpTo(const RowTree& rows, std::size_t size) {
  if (VisibleRows.empty() || VisibleRows.size() >= size) return;
  const std::size_t old = VisibleRows.size();
  for (Row row = rows.PreviousRow(VisibleRows.front()); row && VisibleRows.size() < size;
       row = rows.PreviousRow(row)) {
    VisibleRows.push_back(row);
  }
  // The new rows stand behind the old ones, nearest first; turning both round puts them in order.
  const auto added = VisibleRows.begin() + static_cast<std::ptrdiff_t>(old);
  std::reverse(added, VisibleRows.end());
  std::rotate(VisibleRows.begin(), added, VisibleRows.end());
}

void PageView::updateTopOrdinal(const RowTree& rows) {
  if (!VisibleRows.empty()) TopOrdinal = rows.ordinal(VisibleRows.front());
}

void PageView::RefillFrom(const RowTree& rows, std::int32_t capacity, Row row) {
  VisibleRows.clear();
  appendFrom(rows, row, places(capacity, 1));
  prependUpTo(rows, places(capacity, 0));
  updateTopOrdinal(rows);
}

void PageView::fillAround(const RowTree& rows, std::int32_t capacity, Row row) {
  VisibleRows.assign(1, row);
  prependUpTo(rows, places(capacity, 0));
  appendFrom(rows, rows.NextRow(row), places(capacity, 1));
  updateTopOrdinal(rows);
}

void PageView::EnsureRowVisible(const RowTree& rows, std::int32_t capacity, Row row) {
  if (!row) return;
  const std::int32_t index = VisibleIndex(row);
  if (index >= 0 && static_cast<std::size_t>(index) + 1 < VisibleRows.size()) return;
  const bool above = !VisibleRows.empty() && rows.isBefore(row, VisibleRows.front());
  VisibleRows.clear();
  if (above) {
    appendFrom(rows, row, places(capacity, 1));
  } else {
    appendFrom(rows, row, 2);
    prependUpTo(rows, VisibleRows.size() + places(capacity, -1));
  }
  updateTopOrdinal(rows);
}

void PageView::bringCurrent(const RowTree& rows, std::int32_t capacity, Row row) {
  if (VisibleIndex(row) >= 0) return;
  const std::size_t size = places(capacity, 1);
  if (const Row top = VisibleAt(0)) {
    const std::int64_t steps = static_cast<std::int64_t>(rows.ordinal(row)) - rows.ordinal(top);
    if (steps >= 0 && steps <= capacity - 1) {
      VisibleRows.clear();
      appendFrom(rows, top, size);
      return updateTopOrdinal(rows);
    }
  }
  VisibleRows.clear();
  appendFrom(rows, row, size - size / 2);
  prependUpTo(rows, size);
  appendFrom(rows, rows.NextRow(VisibleRows.back()), size);
  updateTopOrdinal(rows);
}

// Each step drops the first row and appends the next one; when the rows have run out one more drop stands, so
// that the last row shows wholly. Written as one jump: a thumb may move by millions of rows.
bool PageView::RowsDown(const RowTree& rows, std::int32_t capacity, std::int32_t count) {
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
bool PageView::RowsUp(const RowTree& rows, std::int32_t capacity, std::int32_t count) {
  if (VisibleRows.empty() || count < 1) return false;
  const std::int32_t steps = std::min(count, TopOrdinal - 1);
  if (steps < 1) return false;
  const std::size_t grown =
      std::min(VisibleRows.size() + static_cast<std::size_t>(steps), places(capacity, 1));
  jumpTo(rows, TopOrdinal - steps, std::max(VisibleRows.size(), grown));
  return true;
}

void PageView::jumpTo(const RowTree& rows, std::int32_t topOrdinal, std::size_t size) {
  VisibleRows.clear();
  TopOrdinal = topOrdinal;
  appendFrom(rows, rows.nth(topOrdinal), size);
}

}  // namespace tessera
