#include "geometry/cell_steps.h"

#include <algorithm>

#include "geometry/column_finders.h"

namespace tessera {
namespace {

const Rect& viewOf(ColumnPosition column) { return column->value().view.rect; }

}  // namespace

// A column without a width would keep a walk in its place for ever.
bool CellSteps::onLine(const ColumnRecord& column, std::int32_t line) const {
  const Rect& view = column.view.rect;
  if (!column.viewVisible || view.right <= view.left || line < 0 || line >= lineCount()) return false;
  const std::int32_t y = metrics_.LineTops[static_cast<std::size_t>(line)];
  return view.top <= y && view.bottom > y;
}

// A line that no visible column meets has no cell to stand in.
bool CellSteps::hasCells(std::int32_t line) const {
  return std::any_of(columns_.begin(), columns_.end(),
                     [&](const ColumnRecord& column) { return onLine(column, line); });
}

std::int32_t CellSteps::lineWithCells(std::int32_t line, std::int32_t step) const {
  while (line >= 0 && line < lineCount() && !hasCells(line)) line += step;
  return line;
}

// From a scrolled column only when nothing is scrolled away that would have to come back first.
bool CellSteps::stepsIntoFixed(const Cell& from) const {
  if (from.column->value().header.fix) return true;
  if (!metrics_.AnyFixed) return false;
  const std::int32_t x = viewOf(from.column).left;
  const ColumnPosition nearest = bestColumn(
      columns_,
      [&](const ColumnRecord& column) { return onLine(column, from.line) && column.view.rect.right <= x; },
      endsFurtherRight);
  if (!nearest || !nearest->value().header.fix) return false;
  const std::int32_t zone = fixedRange(columns_).right;
  return std::none_of(columns_.begin(), columns_.end(), [&](const ColumnRecord& column) {
    return column.viewVisible && !column.header.fix && column.view.rect.right <= zone;
  });
}

std::optional<Cell> CellSteps::left(const Cell& from, bool wrap) const {
  const bool intoFixed = stepsIntoFixed(from);
  const bool fromFixed = from.column->value().header.fix;
  const std::int32_t x = viewOf(from.column).left;
  const auto counts = [&](const ColumnRecord& column) {
    if (!onLine(column, from.line) || column.view.rect.right > x) return false;
    return column.header.fix ? intoFixed : !fromFixed;
  };
  if (ColumnPosition next = bestColumn(columns_, counts, endsFurtherRight))
    return Cell{from.row, next, from.line};
  if (!wrap) return std::nullopt;
  Row row = from.row;
  std::int32_t line = from.line;
  for (std::int32_t tries = 0; tries < lineCount(); ++tries) {
    if (--line < 0) {
      row = rows_.PreviousRow(row);
      line = lineCount() - 1;
    }
    if (!row) return std::nullopt;
    if (ColumnPosition next = rightmost(line)) return Cell{row, next, line};
  }
  return std::nullopt;
}

std::optional<Cell> CellSteps::right(const Cell& from, bool wrap) const {
  const std::int32_t x = viewOf(from.column).right;
  const auto counts = [&](const ColumnRecord& column) {
    return onLine(column, from.line) && column.view.rect.left >= x;
  };
  if (ColumnPosition next = bestColumn(columns_, counts, startsFurtherLeft))
    return Cell{from.row, next, from.line};
  if (!wrap) return std::nullopt;
  Row row = from.row;
  std::int32_t line = from.line;
  for (std::int32_t tries = 0; tries < lineCount(); ++tries) {
    if (++line >= lineCount()) {
      row = rows_.NextRow(row);
      line = 0;
    }
    if (!row) return std::nullopt;
    if (ColumnPosition next = leftmost(line)) return Cell{row, next, line};
  }
  return std::nullopt;
}

ColumnPosition CellSteps::rightmost(std::int32_t line) const {
  return bestColumn(
      columns_, [&](const ColumnRecord& column) { return onLine(column, line); }, endsFurtherRight);
}

// Scrolled columns may lie anywhere, so a line starts at its fixed ones as long as it has some.
ColumnPosition CellSteps::leftmost(std::int32_t line) const {
  const bool fixedOnly = metrics_.AnyFixed && lineHasFixed(line);
  const auto counts = [&](const ColumnRecord& column) {
    return onLine(column, line) && (column.header.fix || !fixedOnly);
  };
  return bestColumn(columns_, counts, startsFurtherLeft);
}

bool CellSteps::lineHasFixed(std::int32_t line) const {
  return std::any_of(columns_.begin(), columns_.end(),
                     [&](const ColumnRecord& column) { return column.header.fix && onLine(column, line); });
}

bool CellSteps::mustScrollBack(const Cell& from) const {
  if (!metrics_.AnyFixed || !from.column->value().header.fix) return false;
  const std::int32_t zone = fixedRange(columns_).right;
  if (from.column->value().header.rect.right != zone) return false;
  return std::any_of(columns_.begin(), columns_.end(), [zone](const ColumnRecord& column) {
    return !column.header.fix && column.header.rect.left < zone;
  });
}

// Of equals the last: scrolling moves them all alike, so the answer is the same before and after it.
std::optional<Cell> CellSteps::firstScrolled(const Cell& from) const {
  ColumnPosition found = nullptr;
  for (auto it = columns_.begin(); it != columns_.end(); ++it) {
    if (it->header.fix || !onLine(*it, from.line)) continue;
    if (!found || it->view.rect.left <= viewOf(found).left) found = it.position();
  }
  if (!found) return std::nullopt;
  return Cell{from.row, found, from.line};
}

CellSteps::VerticalStep CellSteps::up(const Cell& from) const {
  const Rect& view = viewOf(from.column);
  const std::int32_t line = lineWithCells(metrics_.lineAt(view.top) - 1, -1);
  if (line >= 0) return below(from, from.row, line);
  Row row = rows_.PreviousRow(from.row);
  if (!row) return {Vertical::NoRow, {}};
  const bool whole = view.height() >= metrics_.RowHeight;
  return below(from, row, whole ? from.line : lineWithCells(lineCount() - 1, -1));
}

CellSteps::VerticalStep CellSteps::down(const Cell& from) const {
  const Rect& view = viewOf(from.column);
  std::int32_t line = from.line + 1;
  while (line < lineCount() && metrics_.LineTops[static_cast<std::size_t>(line)] < view.bottom) ++line;
  line = lineWithCells(line, 1);
  if (line < lineCount()) return below(from, from.row, line);
  Row row = rows_.NextRow(from.row);
  if (!row) return {Vertical::NoRow, {}};
  const bool whole = view.height() >= metrics_.RowHeight;
  return below(from, row, whole ? from.line : lineWithCells(0, 1));
}

CellSteps::VerticalStep CellSteps::below(const Cell& from, Row row, std::int32_t line) const {
  const bool fixed = from.column->value().header.fix;
  const std::int32_t x = viewOf(from.column).left;
  const ColumnPosition found = firstColumn(columns_, [&](const ColumnRecord& column) {
    const Rect& view = column.view.rect;
    return column.header.fix == fixed && onLine(column, line) && x >= view.left && x < view.right;
  });
  if (!found) return {};
  return {Vertical::Found, {row, found, line}};
}

ColumnPosition CellSteps::home(std::int32_t line) const {
  return leftmostColumn(columns_, [&](const ColumnRecord& column) { return onLine(column, line); });
}

ColumnPosition CellSteps::end(std::int32_t line) const {
  return rightmostColumn(columns_, [&](const ColumnRecord& column) { return onLine(column, line); });
}

}  // namespace tessera
