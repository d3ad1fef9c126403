#include "tools/tessera/grid_report.h"

#include <algorithm>
#include <fmt/format.h>

#include "tools/tessera/value_text.h"

namespace tessera {

namespace {

std::string focusLine(const FocusModel& focus) {
  const std::string row = focus.FocusRow ? std::to_string(focus.FocusRow.number) : "-";
  const ColumnRecord* column = focus.FocusColumn ? &focus.FocusColumn->value() : nullptr;
  return fmt::format("focus {} {} state {}", row, columnName(column), static_cast<int>(focus.state));
}

std::string barLine(char name, const HeadlessBar& bar) {
  return fmt::format("{} range {}-{} page {} at {} {} {}", name, bar.range.minimum, bar.range.maximum,
                     bar.range.page, bar.range.position, bar.shown ? "shown" : "hidden",
                     bar.enabled ? "enabled" : "disabled");
}

}  // namespace

std::string rectText(const Rect& rect) {
  return fmt::format("{},{},{},{}", rect.left, rect.top, rect.right, rect.bottom);
}

std::string columnName(const ColumnRecord* column) {
  if (!column) return "-";
  const std::u16string_view id = column->id;
  constexpr std::u16string_view noColumn = u"-";
  const bool isWord = !id.empty() && id != noColumn && std::all_of(id.begin(), id.end(), [](char16_t unit) {
    return unit > u' ' && unit != u'"';
  });
  return isWord ? column->id.toUtf8() : quotedText(id);
}

const ColumnRecord* findColumn(const ColumnList& columns, const XString& id) {
  for (const ColumnRecord& column : columns) {
    if (column.id == id) return &column;
  }
  return nullptr;
}

std::vector<std::string> describeState(const GridParts& parts) {
  const PageView& page = parts.page;
  std::vector<std::string> lines;
  lines.push_back(focusLine(parts.focus));
  lines.push_back(fmt::format("rows {} of {} top {}", page.VisibleRows.size(), parts.rows.displayCount(),
                              page.TopOrdinal));
  for (const Row row : page.VisibleRows) {
    const RowView view = parts.rows.view(row);
    lines.push_back(
        fmt::format("row {} level {} state {}", row.number, view.level, static_cast<int>(view.state)));
  }
  if (!parts.focus.SelectedRows.empty()) {
    lines.push_back(fmt::format("selected {}", fmt::join(rowNumbers(parts.focus.SelectedRows), ",")));
  }
  return lines;
}

std::vector<std::string> describeColumns(const ColumnList& columns) {
  std::vector<std::string> lines;
  for (const ColumnRecord& column : columns) {
    lines.push_back(fmt::format("{} header {} view {} fix {}", columnName(&column),
                                rectText(column.header.rect), rectText(column.view.rect), column.header.fix));
  }
  return lines;
}

std::vector<std::string> describeBars(const HeadlessWindow& window) {
  return {barLine('h', window.bar(Bar::Horizontal)), barLine('v', window.bar(Bar::Vertical))};
}

}  // namespace tessera
