#include "rows/row_list.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace tessera {
namespace {

// Sorting pays from here on.
constexpr std::size_t fewRuns = 16;

RowList::Run upward(const RowList::Run& run) {
  return {std::min(run.first, run.last), std::max(run.first, run.last)};
}

bool covers(const RowList::Run& run, Row row) {
  const RowList::Run range = upward(run);
  return row.number >= range.first && row.number <= range.last;
}

bool isSingle(const RowList::Run& run) { return run.first == run.last; }

// Whether the numbers go on from `a` to `b` without a gap or a turn.
bool goesOn(const RowList::Run& a, const RowList::Run& b) {
  const std::int32_t step = isSingle(a) ? b.step() : a.step();
  if (isSingle(a) && isSingle(b)) return b.first == a.last + 1 || b.first == a.last - 1;
  return b.first == a.last + step && (isSingle(b) || b.step() == step);
}

}  // namespace

std::int64_t RowList::size() const {
  return std::accumulate(runs_.begin(), runs_.end(), std::int64_t{0},
                         [](std::int64_t sum, const Run& run) { return sum + run.size(); });
}

bool RowList::holds(Row row) const {
  if (runs_.size() < fewRuns) {
    return std::any_of(runs_.begin(), runs_.end(), [row](const Run& run) { return covers(run, row); });
  }
  if (byNumber_.empty()) sortRuns();
  const auto behind =
      std::upper_bound(byNumber_.begin(), byNumber_.end(), row.number,
                       [](std::int32_t number, const Run& run) { return number < run.first; });
  return behind != byNumber_.begin() && covers(*std::prev(behind), row);
}

void RowList::sortRuns() const {
  byNumber_.resize(runs_.size());
  std::transform(runs_.begin(), runs_.end(), byNumber_.begin(), upward);
  std::sort(byNumber_.begin(), byNumber_.end(), [](const Run& a, const Run& b) { return a.first < b.first; });
}

void RowList::clear() {
  runs_.clear();
  byNumber_.clear();
}

void RowList::assign(Row row) {
  clear();
  append(row);
}

void RowList::append(Row row) { appendRun({row.number, row.number}); }

void RowList::appendRun(Run run) {
  byNumber_.clear();
  if (!runs_.empty() && goesOn(runs_.back(), run)) {
    runs_.back().last = run.last;
  } else {
    runs_.push_back(run);
  }
}

void RowList::putFirst(Row row) {
  remove(row);
  const Run run{row.number, row.number};
  if (!runs_.empty() && goesOn(run, runs_.front())) {
    runs_.front().first = row.number;
  } else {
    runs_.push_front(run);
  }
}

void RowList::removeFirst() { remove(front()); }

void RowList::remove(Row row) {
  byNumber_.clear();
  const auto place =
      std::find_if(runs_.begin(), runs_.end(), [row](const Run& run) { return covers(run, row); });
  if (place == runs_.end()) return;
  const Run run = *place;
  const std::int32_t step = run.step();
  if (isSingle(run)) {
    runs_.erase(place);
  } else if (row.number == run.first) {
    place->first += step;
  } else {
    place->last = row.number - step;
    if (row.number != run.last) runs_.insert(std::next(place), {row.number + step, run.last});
  }
}

void RowList::renumber(const RowsChanged& change) {
  const std::deque<Run> old = std::exchange(runs_, {});
  const std::int64_t behind = std::int64_t{change.first} + change.gone;
  for (const Run& run : old) {
    const Run range = upward(run);
    const Run before{range.first, std::min(range.last, change.first - 1)};
    const Run after{static_cast<std::int32_t>(
                        std::max<std::int64_t>(range.first, std::min<std::int64_t>(behind, INT32_MAX))),
                    range.last};
    const bool hasBefore = before.first <= before.last;
    const bool hasAfter = behind <= range.last;
    const Run moved{change({after.first}).number, change({after.last}).number};
    const bool down = run.step() < 0;
    if (hasBefore && !down) appendRun(before);
    if (hasAfter) appendRun(down ? Run{moved.last, moved.first} : moved);
    if (hasBefore && down) appendRun({before.last, before.first});
  }
}

std::vector<std::int32_t> rowNumbers(const RowList& list) {
  std::vector<std::int32_t> numbers;
  numbers.reserve(static_cast<std::size_t>(list.size()));
  list.visitWhile([&numbers](Row row) {
    numbers.push_back(row.number);
    return true;
  });
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

}  // namespace tessera
