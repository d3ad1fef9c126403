#include "rows/cell_text.h"

#include <algorithm>

#include "config/child_words.h"
#include "config/format_value.h"
#include "rows/group_text.h"
#include "shared/compare.h"

namespace tessera {
namespace {

void formatScratch(const TextSource& source, const ColumnRecord& column, XString& text) {
  formatValue(column.view, source.scratch.value, source.eval, text);
}

// The text that the view has of its own; false when the cell shows the data set's. A run that fails computes
// the empty text.
bool viewText(const TextSource& source, const ColumnRecord& column, XString& text) {
  if (column.view.isDynamic(DynamicSlot::Text)) {
    column.view.evaluate(DynamicSlot::Text, source.eval, source.scratch.value);
    formatScratch(source, column, text);
    return true;
  }
  if ((column.view.dynamicFlags & literalTextBit) == 0) return false;
  formatText(column.view, column.view.text, source.eval, text);
  return true;
}

void comboText(const TextSource& source, const ColumnRecord& column, std::int32_t row,
               std::int32_t columnIndex, XString& text) {
  XString& code = source.scratch.code;
  source.link.text(row, columnIndex, code);
  const auto& items = column.child.comboItems;
  const auto item = std::find_if(items.begin(), items.end(),
                                 [&code](const ComboItem& entry) { return entry.code == code; });
  formatText(column.view, item == items.end() ? std::u16string_view() : item->text.view(), source.eval, text);
}

void lookupText(const TextSource& source, const ColumnRecord& column, std::int32_t row,
                std::int32_t columnIndex, XString& text) {
  text.assign({});
  const std::shared_ptr<DataSetControl> lookup = column.child.lookupDataset;
  if (!lookup) return;
  XString& code = source.scratch.code;
  source.link.text(row, columnIndex, code);
  std::int32_t found = 0;
  lookup->FindRow(column.child.lookupCode, code, found);
  if (found < 1) return;
  source.scratch.value.setEmpty();
  lookup->GetValueByName(found, column.child.lookupText, source.scratch.value);
  formatScratch(source, column, text);
}

// Combo and lookup cells show another text in place of their value; false for other cells.
bool translatedText(const TextSource& source, const ColumnRecord& column, std::int32_t row,
                    std::int32_t columnIndex, XString& text) {
  switch (valueOfKind(column.child.type)) {
    case CellValue::ItemCode:
      comboText(source, column, row, columnIndex, text);
      return true;
    case CellValue::LookupCode:
      lookupText(source, column, row, columnIndex, text);
      return true;
    case CellValue::Text:
    case CellValue::Bare:
    case CellValue::PictureKey:
      break;
  }
  return false;
}

// As cellText(), but check and radio cells are read and formatted like plain ones.
void valueTextOf(const TextSource& source, const ColumnRecord& column, std::int32_t row, XString& text) {
  const std::int32_t columnIndex = source.link.columnIndex(column.refColumnId);
  if (viewText(source, column, text) || translatedText(source, column, row, columnIndex, text)) return;
  source.link.valueByName(row, column.refColumnId, source.scratch.value);
  formatScratch(source, column, text);
}

void groupTextOf(const TextSource& source, const ColumnRecord& column, const RowTree& rows, std::int32_t row,
                 XString& text) {
  std::int32_t level = source.link.level(row);
  std::int32_t columnIndex = source.link.columnIndex(column.refColumnId);
  const Row place = column.hasTree ? rows.find(row) : noRow;
  const std::int32_t groupColumn = place ? rows.view(place).groupColumn : 0;
  if (groupColumn != 0) columnIndex = groupColumn;
  GroupText(source, column, row, columnIndex, level, text);
}

const ColumnRecord* columnOfId(const ColumnList& columns, const XString& id) {
  const auto column = std::find_if(columns.begin(), columns.end(),
                                   [&id](const ColumnRecord& record) { return equalNoCase(record.id, id); });
  return column != columns.end() && column->id == id ? &*column : nullptr;
}

}  // namespace

void cellText(const TextSource& source, const ColumnRecord& column, std::int32_t row,
              std::int32_t columnIndex, XString& text) {
  if (viewText(source, column, text)) return;
  if (valueOfKind(column.child.type) == CellValue::Bare) return source.link.text(row, columnIndex, text);
  if (translatedText(source, column, row, columnIndex, text)) return;
  source.link.value(row, columnIndex, source.scratch.value);
  formatScratch(source, column, text);
}

bool queryText(const TextSource& source, const ColumnList& columns, const RowTree& rows,
               const XString& columnId, std::int32_t row, std::int32_t kind, XString& text) {
  const ColumnRecord* column = columnOfId(columns, columnId);
  if (!column) return false;
  source.eval.ExprRow = row;
  switch (static_cast<TextKind>(kind)) {
    case TextKind::Header:
      displayText(column->header, source.eval, text);
      return true;
    case TextKind::Cell:
      valueTextOf(source, *column, row, text);
      return true;
    case TextKind::Group:
      groupTextOf(source, *column, rows, row, text);
      return true;
    case TextKind::Summary:
      displayText(column->summary, source.eval, text);
      return true;
  }
  return false;
}

}  // namespace tessera
