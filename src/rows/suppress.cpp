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

// Calls visit(text) for the texts that make up the key of a row, until it gives false. A row below level 0
// shows no text, but is told from its neighbours by the text that it would show.
template <class Visit>
void visitKey(const TextSource& source, const ColumnRecord& column, std::int32_t row, Visit visit) {
  source.eval.ExprRow = row;
  const std::int32_t rowLevel = source.link.level(row);
  XString& part = source.scratch.part;
  for (const SuppressRef& entry : column.suppressRefs) {
    if (!entry.column) continue;
    if (rowLevel > 0) {
      std::int32_t level = rowLevel;
      GroupText(source, *entry.column, row, entry.index, level, part);
    } else {
      cellText(source, *entry.column, row, entry.index, part);
    }
    if (!visit(part.view())) return;
  }
}

// The parts of a key stand side by side without a separator; a row that differs early is asked no further.
bool hasKey(const TextSource& source, const ColumnRecord& column, std::int32_t row, std::u16string_view key) {
  bool same = true;
  visitKey(source, column, row, [&](std::u16string_view part) {
    same = key.starts_with(part);
    if (same) key.remove_prefix(part.size());
    return same;
  });
  return same && key.empty();
}

std::int32_t runLength(const TextSource& source, const ColumnRecord& column, std::int32_t row,
                       std::int32_t mostRows) {
  XString& key = source.scratch.key;
  key.assign({});
  visitKey(source, column, row, [&key](std::u16string_view part) {
    key.append(part);
    return true;
  });
  std::int32_t length = 1;
  while (length < mostRows && hasKey(source, column, row + length, key)) ++length;
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
