// From a cell to its neighbours.

#pragma once

#include <cstdint>
#include <optional>

#include "geometry/grid_metrics.h"
#include "rows/row_tree.h"

namespace tessera {

// `line` is an index into GridMetrics::LineTops: a row template may have several lines.
struct Cell {
  Row row;
  ColumnPosition column = nullptr;
  std::int32_t line = 0;
};

// A step changes nothing: it says where the neighbour is. What must hold: the cell that a step starts from
// has a row and a column.
class CellSteps {
 public:
  CellSteps(ColumnList& columns, const GridMetrics& metrics, const RowTree& rows)
      : columns_(columns), metrics_(metrics), rows_(rows) {}

  // At the end of a line the step goes on in the next line, or in the row next to it, unless `wrap` is off.
  std::optional<Cell> left(const Cell& from, bool wrap = true) const;
  std::optional<Cell> right(const Cell& from, bool wrap = true) const;

  // True at the right end of the fixed columns while the columns behind it are scrolled away: then the way to
  // the right leads to the first one that scrolls, and the columns must be scrolled back first.
  bool mustScrollBack(const Cell& from) const;
  std::optional<Cell> firstScrolled(const Cell& from) const;

  enum class Vertical { Found, NoCell, NoRow };
  struct VerticalStep {
    Vertical outcome = Vertical::NoCell;
    Cell cell;
  };
  // To the column of the same kind (fixed or not) at the left edge of `from`, in the next line that has
  // cells.
  VerticalStep up(const Cell& from) const;
  VerticalStep down(const Cell& from) const;

  // The column at the left or right end of a line; null when the line is covered by wider columns.
  ColumnPosition home(std::int32_t line) const;
  ColumnPosition end(std::int32_t line) const;

  std::int32_t lineCount() const { return static_cast<std::int32_t>(metrics_.LineTops.size()); }

 private:
  bool onLine(const ColumnRecord& column, std::int32_t line) const;
  bool hasCells(std::int32_t line) const;
  // `line` or the nearest one with cells from there on; -1 or lineCount() when there is none.
  std::int32_t lineWithCells(std::int32_t line, std::int32_t step) const;
  bool stepsIntoFixed(const Cell& from) const;
  bool lineHasFixed(std::int32_t line) const;
  ColumnPosition rightmost(std::int32_t line) const;
  ColumnPosition leftmost(std::int32_t line) const;
  VerticalStep below(const Cell& from, Row row, std::int32_t line) const;

  ColumnList& columns_;
  const GridMetrics& metrics_;
  const RowTree& rows_;
};

}  // namespace tessera
