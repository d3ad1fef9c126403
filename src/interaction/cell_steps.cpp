#include "interaction/cell_steps.h"

#include <algorithm>

#include "geometry/column_edges.h"

namespace tessera {
namespace {

constexpr std::int32_t walkLimit = 65536;  // no column lies further out

const Rect& viewOf(ColumnPosition column) { return column->value().view.rect; }

// The first column that `counts` and that no other one is `better` than.
template <class Counts, class Better>
ColumnPosition best(ColumnList& columns, Counts counts, Better better) {
  ColumnPosition found = nullptr;
  for (auto it = columns.begin(); it != columns.end(); ++it) {
    if (!counts(*it)) continue;
    if (!found || better(it->view.rect, viewOf(found))) found = it.position();
  }
  return found;
}

bool endsFurtherRight(const Rect& a, const Rect& b) { return a.right > b.right; }
bool startsFurtherLeft(const Rect& a, const Rect& b) { return a.left < b.left; }

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
  const ColumnPosition nearest = best(
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
  if (ColumnPosition next = best(columns_, counts, endsFurtherRight)) return Cell{from.row, next, from.line};
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
  if (ColumnPosition next = best(columns_, counts, startsFurtherLeft)) return Cell{from.row, next, from.line};
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
  return best(
      columns_, [&](const ColumnRecord& column) { return onLine(column, line); }, endsFurtherRight);
}

// Scrolled columns may lie anywhere, so a line starts at its fixed ones as long as it has some.
ColumnPosition CellSteps::leftmost(std::int32_t line) const {
  const bool fixedOnly = metrics_.AnyFixed && lineHasFixed(line);
  const auto counts = [&](const ColumnRecord& column) {
    return onLine(column, line) && (column.header.fix || !fixedOnly);
  };
  return best(columns_, counts, startsFurtherLeft);
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
  for (auto it = columns_.begin(); it != columns_.end(); ++it) {
    const Rect& view = it->view.rect;
    if (it->header.fix != fixed || !onLine(*it, line) || x < view.left || x >= view.right) continue;
    return {Vertical::Found, {row, it.position(), line}};
  }
  return {};
}

// A column further left moves the limit for all that follow, on whichever line it stands.
ColumnPosition CellSteps::home(std::int32_t line) const {
  ColumnPosition found = nullptr;
  std::int32_t limit = walkLimit;
  for (auto it = columns_.begin(); it != columns_.end(); ++it) {
    if (!it->viewVisible || it->view.rect.left > limit) continue;
    limit = it->view.rect.left;
    if (onLine(*it, line)) found = it.position();
  }
  return found;
}

ColumnPosition CellSteps::end(std::int32_t line) const {
  ColumnPosition found = nullptr;
  std::int32_t limit = -walkLimit;
  for (auto it = columns_.begin(); it != columns_.end(); ++it) {
    if (!it->viewVisible || it->view.rect.right < limit) continue;
    limit = it->view.rect.right;
    if (onLine(*it, line)) found = it.position();
  }
  return found;
}

}  // namespace tessera
