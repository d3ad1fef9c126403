#include "rows/suppress.h"

#include <algorithm>

#include "rows/group_text.h"
#include "shared/compare.h"

namespace tessera {
namespace {

void addOwnColumn(ColumnRecord& column) {
  const auto isOwn = [&column](const SuppressRef& entry) { return entry.columnId == column.refColumnId; };
  if (std::none_of(column.suppressRefs.begin(), column.suppressRefs.end(), isOwn)) {
    column.suppressRefs.addTail({column.refColumnId});
  }
}

void resolveEntry(SuppressRef& entry, const ColumnList& columns, const DataLink& link) {
  const auto column = std::find_if(columns.begin(), columns.end(), [&entry](const ColumnRecord& record) {
    return equalNoCase(record.refColumnId, entry.columnId);
  });
  entry.column = column == columns.end() ? nullptr : &*column;
  entry.index = entry.column ? link.columnIndex(entry.columnId) : -1;
}

void removeUnresolved(XList<SuppressRef>& entries) {
  for (auto* position = entries.head(); position;) {
    auto* const next = XList<SuppressRef>::nextOf(position);
    if (position->value().index <= 0) entries.remove(position);
    position = next;
  }
}

// The text that a cell shows by the kind of its row; `level` may change as GroupText() says.
void textOfLevel(const TextSource& source, const ColumnRecord& column, std::int32_t row,
                 std::int32_t columnIndex, std::int32_t& level, XString& text) {
  if (level == 0) {
    cellText(source, column, row, columnIndex, text);
  } else if (level > 0) {
    GroupText(source, column, row, columnIndex, level, text);
  } else {
    text.assign({});
  }
}

// Equal keys make a run. The parts stand side by side without a separator. A row below level 0 shows no text,
// but is told from its neighbours by the text that it would show.
void keyOf(const TextSource& source, const ColumnRecord& column, std::int32_t row, XString& key) {
  source.eval.ExprRow = row;
  const std::int32_t rowLevel = source.link.level(row);
  XString& part = source.scratch.part;
  key.assign({});
  for (const SuppressRef& entry : column.suppressRefs) {
    if (!entry.column) continue;
    if (rowLevel > 0) {
      std::int32_t level = rowLevel;
      GroupText(source, *entry.column, row, entry.index, level, part);
    } else {
      cellText(source, *entry.column, row, entry.index, part);
    }
    key.append(part);
  }
}

std::int32_t runLength(const TextSource& source, const ColumnRecord& column, std::int32_t row,
                       std::int32_t mostRows) {
  TextScratch& scratch = source.scratch;
  keyOf(source, column, row, scratch.key);
  std::int32_t length = 1;
  while (length < mostRows) {
    keyOf(source, column, row + length, scratch.nextKey);
    if (!(scratch.nextKey == scratch.key)) break;
    ++length;
  }
  source.eval.ExprRow = row;
  return length;
}

}  // namespace

void ResolveSuppress(ColumnList& columns, const DataLink& link) {
  for (ColumnRecord& column : columns) {
    if (!column.suppressRefs.empty()) addOwnColumn(column);
  }
  for (ColumnRecord& column : columns) {
    for (SuppressRef& entry : column.suppressRefs) resolveEntry(entry, columns, link);
    removeUnresolved(column.suppressRefs);
  }
}

CellSpan CellTextAndSpan(const TextSource& source, const ColumnRecord& column, std::int32_t row,
                         std::int32_t columnIndex, const SpanLimits& limits, XString& text) {
  CellSpan result;
  source.eval.ExprRow = row;
  result.level = source.link.level(row);
  textOfLevel(source, column, row, columnIndex, result.level, text);
  if (limits.maxRows <= 1 || column.suppressRefs.empty() || column.view.rect.height() < limits.rowHeight) {
    return result;
  }
  const std::int32_t rowsFromHere = addClamped(subClamped(source.link.rowCount(), row), 1);
  if (rowsFromHere > 1) {
    result.span = runLength(source, column, row, std::min(limits.maxRows, rowsFromHere));
  }
  return result;
}

}  // namespace tessera
