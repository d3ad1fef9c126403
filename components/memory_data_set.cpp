#include "components/memory_data_set.h"

#include <algorithm>
#include <utility>

#include "components/number_text.h"
#include "shared/utf.h"

namespace tessera {
namespace {

constexpr std::int32_t integerLength = 11;
constexpr std::int32_t longLength = 20;
constexpr std::int32_t decimalLength = 18;    // beside the digits after the point
constexpr std::int32_t textLength = 1 << 30;  // characters; more than any cell has

std::int32_t defaultLength(const ColumnFormat& format) {
  switch (format.type) {
    case columnInteger:
      return integerLength;
    case columnLong:
      return longLength;
    case columnDecimal:
      return decimalLength + format.scale;
    default:
      return textLength;
  }
}

// The text of a subtotal's cell, written as the column writes its own numbers.
void showValue(const XValue& value, std::int32_t scale, XString& text) {
  NumberBuffer buffer;
  switch (value.type()) {
    case VT_I4:
    case VT_I8:
      return assignUtf8(text, wholeText(value.asInt64(), buffer));
    case VT_R8:
      return assignUtf8(text, decimalText(value.asDouble(), scale, buffer));
    case VT_BSTR:
      return text.assign(value.asText().view());
    default:
      return text.assign({});
  }
}

}  // namespace

MemoryDataSet::MemoryDataSet(ColumnStore store, const DataSetOptions& options)
    : options_(options),
      sortExpr_(XString::fromNarrow(options.sort)),
      keepDeleted_(options.keepDeleted),
      store_(std::move(store)) {
  takeNewStore();
}

MemoryDataSet::~MemoryDataSet() { close(); }

void MemoryDataSet::close() {
  if (std::exchange(closed_, true)) return;
  notifier_.sourceClosing(false);
}

void MemoryDataSet::takeNewStore() {
  flags_ = RowFlags();
  order_ = RowOrder(store_.recordCount());
  levelColumn_ = options_.level.empty() ? -1 : store_.find(utf16FromUtf8(options_.level));
  readSubsum();
  if (sortExpr_.empty() || !arrange())
    if (subtotals_.active()) subtotals_.build(store_, order_);
  rowNumbersChanged();
  reordered_ = false;
  baseIsAsLoaded_ = standsAsLoaded();
  current_ = order_.count() > 0 ? 1 : 0;
}

void MemoryDataSet::replaceRows(ColumnStore store) {
  store_ = std::move(store);
  takeNewStore();
  notifier_.structureChanged(0);
}

void MemoryDataSet::readSubsum() {
  groupKeys_ = parseSubsum(utf16FromUtf8(options_.subsum), store_);
  subtotals_.setKeys(levelColumn_ < 0 ? groupKeys_ : std::vector<GroupKey>());
}

void MemoryDataSet::rowNumbersChanged() {
  finds_.clear();
  finds_.resize(static_cast<std::size_t>(store_.columnCount()));
  ++revision_;
}

void MemoryDataSet::GetID(XString& id) { assignUtf8(id, options_.id); }

void MemoryDataSet::GetKeepDeleted(VariantBool& flag) { flag = keepDeleted_ ? VARIANT_TRUE : VARIANT_FALSE; }

void MemoryDataSet::GetSubsumExpr(XString& text) { assignUtf8(text, options_.subsum); }

void MemoryDataSet::GetSortExpr(XString& text) { text = sortExpr_; }

void MemoryDataSet::SetSortExpr(const XString& text) { sortExpr_ = text; }

void MemoryDataSet::GetColumnIndex(const XString& name, std::int32_t& column) {
  column = store_.find(name.view()) + 1;
}

void MemoryDataSet::GetColumnCount(std::int32_t& count) { count = store_.columnCount(); }

void MemoryDataSet::GetColumnName(std::int32_t column, XString& name) {
  name.assign(hasColumn(column) ? store_.column(column - 1).format().name.view() : std::u16string_view());
}

void MemoryDataSet::GetColumnType(std::int32_t column, std::int32_t& type) {
  type = hasColumn(column) ? store_.column(column - 1).format().type : 0;
}

void MemoryDataSet::GetColumnLength(std::int32_t column, std::int32_t& length) {
  length = 0;
  if (!hasColumn(column)) return;
  const ColumnFormat& format = store_.column(column - 1).format();
  length = format.length > 0 ? format.length : defaultLength(format);
}

void MemoryDataSet::GetColumnScale(std::int32_t column, std::int32_t& scale) {
  scale = hasColumn(column) ? store_.column(column - 1).format().scale : 0;
}

void MemoryDataSet::GetRowCount(std::int32_t& count) { count = order_.count(); }

void MemoryDataSet::GetStatus(std::int32_t row, std::int32_t& status) {
  status = hasRow(row) && entryAt(row) >= 0 ? flags_.status(entryAt(row)) : rowNormal;
}

void MemoryDataSet::GetSysStatus(std::int32_t row, std::int32_t& status) { GetStatus(row, status); }

std::int32_t MemoryDataSet::levelAt(std::int32_t row) const {
  const std::int32_t entry = order_.at(row - 1);
  return entry < 0 ? subtotals_.levelOfDepth(-entry) : dataRows().levelOf(entry);
}

void MemoryDataSet::GetLevel(std::int32_t row, std::int32_t& level) {
  level = hasRow(row) ? levelAt(row) : 0;
}

void MemoryDataSet::GetRowSelected(std::int32_t row, std::int32_t& flag) {
  flag = 0;
  if (!hasRow(row)) return;
  const std::int32_t entry = entryAt(row);
  flag = (entry < 0 ? subtotals_.selected(row - 1, -entry) : flags_.selected(entry)) ? 1 : 0;
}

void MemoryDataSet::SetRowSelected(std::int32_t row, std::int32_t flag) {
  if (!hasRow(row)) return;
  const std::int32_t entry = entryAt(row);
  if (entry < 0)
    subtotals_.select(row - 1, -entry, flag == 1);
  else
    flags_.select(entry, flag == 1);
}

void MemoryDataSet::GetValue(std::int32_t row, std::int32_t column, XValue& value) {
  if (!hasRow(row) || !hasColumn(column)) return value.setEmpty();
  const std::int32_t entry = entryAt(row);
  if (entry >= 0) return store_.column(column - 1).value(entry, value);
  subtotals_.value(row - 1, -entry, column - 1, store_, dataRows(), value);
}

void MemoryDataSet::GetValueByName(std::int32_t row, const XString& name, XValue& value) {
  GetValue(row, store_.find(name.view()) + 1, value);
}

void MemoryDataSet::GetText(std::int32_t row, std::int32_t column, XString& text) {
  if (!hasRow(row) || !hasColumn(column)) return text.assign({});
  const std::int32_t entry = entryAt(row);
  const Column& cells = store_.column(column - 1);
  if (entry >= 0) {
    NumberBuffer buffer;
    return assignUtf8(text, cells.shown(entry, buffer));
  }
  subtotals_.value(row - 1, -entry, column - 1, store_, dataRows(), scratch_);
  showValue(scratch_, cells.format().scale, text);
}

void MemoryDataSet::GetTextByName(std::int32_t row, const XString& name, XString& text) {
  GetText(row, store_.find(name.view()) + 1, text);
}

bool MemoryDataSet::isWritable(std::int32_t row, std::int32_t column) const {
  return hasRow(row) && hasColumn(column) && entryAt(row) >= 0;
}

// A cell holds more than its text tells: further digits, or that it has no value. Who writes the text back
// that the cell shows, as an editor does in which nothing was typed, means none of it.
bool MemoryDataSet::shows(std::int32_t row, std::int32_t column, const XValue& value) {
  if (value.type() != VT_BSTR) return false;
  XString text;
  GetText(row, column, text);
  return text == value.asText();
}

void MemoryDataSet::SetValue(std::int32_t row, std::int32_t column, const XValue& value) {
  if (!isWritable(row, column) || shows(row, column, value) || !notifier_.canChange(row)) return;
  if (!isWritable(row, column)) return;  // whoever was asked may have removed the row
  FindIndex* find = finds_[static_cast<std::size_t>(column - 1)].get();
  if (find) find->beforeChange(row - 1);
  const Column::Change change = store_.column(column - 1).set(entryAt(row), value);
  if (find) find->afterChange(row - 1);
  if (change == Column::Change::changed) cellWritten(row, column);
}

void MemoryDataSet::cellWritten(std::int32_t row, std::int32_t column) {
  const std::int32_t record = entryAt(row);
  std::unique_ptr<FindIndex>& find = finds_[static_cast<std::size_t>(column - 1)];
  if (find && find->isWorn()) find.reset();
  store_.column(column - 1).mark(record, true);
  if (flags_.status(record) == rowNormal) flags_.setStatus(record, rowUpdated);
  if (subtotals_.active()) subtotals_.rowChanged(row - 1);
  ++revision_;
  notifier_.cellChanged(row, column);
}

void MemoryDataSet::SetText(std::int32_t row, std::int32_t column, const XString& text) {
  XValue value;
  value.setText(text);
  SetValue(row, column, value);
}

void MemoryDataSet::SetTextByName(std::int32_t row, const XString& name, const XString& text) {
  SetText(row, store_.find(name.view()) + 1, text);
}

void MemoryDataSet::GetCurrentRow(std::int32_t& row) { row = current_; }

void MemoryDataSet::SetCurrentRow(std::int32_t row) {
  if (row != 0 && !hasRow(row)) return;
  current_ = row;
  notifier_.currentRowChanged(row);
}

void MemoryDataSet::FindRow(const XString& name, const XString& value, std::int32_t& row) {
  const std::int32_t column = store_.find(name.view());
  row = 0;
  if (column < 0) return;
  std::unique_ptr<FindIndex>& find = finds_[static_cast<std::size_t>(column)];
  if (!find) find = std::make_unique<FindIndex>(store_.column(column), order_);
  row = find->find(utf8FromUtf16(value.view())) + 1;
}

HResult MemoryDataSet::Advise(DataSetNotifications* sink, std::int32_t /*flag*/) {
  return closed_ ? E_FAIL : notifier_.advise(sink);
}

void MemoryDataSet::Unadvise(DataSetNotifications* sink) { notifier_.unadvise(sink); }

}  // namespace tessera
