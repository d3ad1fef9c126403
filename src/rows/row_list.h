// Rows in an order of their own that can be asked for a single one.

#pragma once

#include <cstdint>
#include <deque>
#include <vector>

#include "rows/rows_changed.h"

namespace tessera {

// Each row stands here once. Neighbouring numbers are kept as one run, so that a selection of millions of
// rows costs as much as one of two; with k runs holds() takes O(log k) after a sort that every change makes
// necessary again.
class RowList {
 public:
  // In the order of the list: the numbers may run down.
  struct Run {
    std::int32_t first = 0;
    std::int32_t last = 0;
    std::int64_t size() const {
      return (last < first ? first - std::int64_t{last} : last - std::int64_t{first}) + 1;
    }
    std::int32_t step() const { return last < first ? -1 : 1; }
  };

  bool empty() const { return runs_.empty(); }
  std::int64_t size() const;
  // noRow when there is none.
  Row front() const { return runs_.empty() ? noRow : Row{runs_.front().first}; }
  bool holds(Row row) const;
  const std::deque<Run>& runs() const { return runs_; }
  // In the order of the list, until `visit` gives false.
  template <class Visit>
  void visitWhile(Visit visit) const;

  void clear();
  // `row` alone.
  void assign(Row row);
  // What must hold: `row` does not stand here.
  void append(Row row);
  // `row` becomes the first and stands there once.
  void putFirst(Row row);
  // What must hold: the list is not empty.
  void removeFirst();
  void remove(Row row);
  void renumber(const RowsChanged& change);

 private:
  void appendRun(Run run);
  void sortRuns() const;

  std::deque<Run> runs_;
  mutable std::vector<Run> byNumber_;  // runs_ upwards and in the order of their numbers, or empty: unsorted
};

// Ascending.
std::vector<std::int32_t> rowNumbers(const RowList& list);

template <class Visit>
void RowList::visitWhile(Visit visit) const {
  for (const Run& run : runs_) {
    for (std::int32_t row = run.first;; row += run.step()) {
      if (!visit(Row{row})) return;
      if (row == run.last) break;
    }
  }
}

}  // namespace tessera
