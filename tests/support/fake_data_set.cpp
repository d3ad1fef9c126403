#include "support/fake_data_set.h"

#include <utility>

#include "support/one_object_site.h"

namespace tessera {
namespace {

class SilentClient : public DataClient {
 public:
  HResult SortReset(std::int32_t) override { return S_OK; }
  HResult StructureChanged(std::int32_t, std::int32_t) override { return S_OK; }
  HResult RowsAdded(std::int32_t, std::int32_t) override { return S_OK; }
  HResult DataChanged(std::int32_t, std::int32_t) override { return S_OK; }
  HResult CanChange(std::int32_t, std::int32_t, VariantBool&) override { return S_OK; }
  HResult CurrentRowChanged(std::int32_t, std::int32_t) override { return S_OK; }
  HResult RowsReset(std::int32_t) override { return S_OK; }
  HResult Reserved(std::int32_t, std::int32_t) override { return S_OK; }
  HResult RowInserted(std::int32_t, std::int32_t) override { return S_OK; }
  HResult RowDeleted(std::int32_t, std::int32_t) override { return S_OK; }
  HResult CellChanged(std::int32_t, std::int32_t, std::int32_t) override { return S_OK; }
  HResult SourceClosing(std::int32_t, VariantBool) override { return S_OK; }
};

}  // namespace

FakeDataSet::FakeDataSet(std::vector<XString> names, const std::vector<std::vector<const char16_t*>>& texts)
    : columns(std::move(names)) {
  for (const auto& line : texts) {
    Row row;
    for (const char16_t* text : line) row.values.push_back(XValue::ofText(text));
    rows.push_back(std::move(row));
  }
}

FakeDataSet::Row* FakeDataSet::rowAt(std::int32_t row) {
  return row >= 1 && row <= static_cast<std::int32_t>(rows.size()) ? &rows[static_cast<std::size_t>(row - 1)]
                                                                   : nullptr;
}

XValue* FakeDataSet::valueAt(std::int32_t row, std::int32_t column) {
  Row* line = rowAt(row);
  const bool exists = line && column >= 1 && column <= static_cast<std::int32_t>(line->values.size());
  return exists ? &line->values[static_cast<std::size_t>(column - 1)] : nullptr;
}

std::int32_t FakeDataSet::indexOf(const XString& name) const {
  for (std::size_t index = 0; index < columns.size(); ++index) {
    if (columns[index] == name) return static_cast<std::int32_t>(index + 1);
  }
  return 0;
}

void FakeDataSet::GetColumnIndex(const XString& name, std::int32_t& column) { column = indexOf(name); }

void FakeDataSet::GetColumnName(std::int32_t column, XString& name) {
  name.assign({});
  if (column >= 1 && column <= static_cast<std::int32_t>(columns.size())) {
    name = columns[static_cast<std::size_t>(column - 1)];
  }
}

void FakeDataSet::GetSysStatus(std::int32_t row, std::int32_t& status) {
  const Row* line = rowAt(row);
  status = line ? line->status : rowNormal;
}

void FakeDataSet::GetLevel(std::int32_t row, std::int32_t& level) {
  const Row* line = rowAt(row);
  level = line ? line->level : 0;
}

void FakeDataSet::GetRowSelected(std::int32_t row, std::int32_t& flag) {
  const Row* line = rowAt(row);
  flag = line ? line->selected : 0;
}

void FakeDataSet::SetRowSelected(std::int32_t row, std::int32_t flag) {
  if (Row* line = rowAt(row)) line->selected = flag;
}

void FakeDataSet::GetValue(std::int32_t row, std::int32_t column, XValue& value) {
  const XValue* found = valueAt(row, column);
  if (!found) return value.setEmpty();
  if (found->type() == VT_BSTR) return value.setText(found->asText().view());
  value = *found;
}

void FakeDataSet::SetValue(std::int32_t row, std::int32_t column, const XValue& value) {
  if (XValue* found = valueAt(row, column)) *found = value;
}

void FakeDataSet::GetValueByName(std::int32_t row, const XString& name, XValue& value) {
  GetValue(row, indexOf(name), value);
}

void FakeDataSet::GetText(std::int32_t row, std::int32_t column, XString& text) {
  const XValue* found = valueAt(row, column);
  if (!found) return text.assign({});
  if (found->type() == VT_I4) return text.format("%d", found->asInt());
  text.assign(found->asText());
}

void FakeDataSet::SetText(std::int32_t row, std::int32_t column, const XString& text) {
  if (XValue* found = valueAt(row, column)) found->setText(text.view());
}

void FakeDataSet::GetTextByName(std::int32_t row, const XString& name, XString& text) {
  GetText(row, indexOf(name), text);
}

void FakeDataSet::SetTextByName(std::int32_t row, const XString& name, const XString& text) {
  SetText(row, indexOf(name), text);
}

void FakeDataSet::FindRow(const XString& name, const XString& value, std::int32_t& row) {
  const std::int32_t column = indexOf(name);
  XString text;
  for (row = 1; row <= static_cast<std::int32_t>(rows.size()); ++row) {
    GetText(row, column, text);
    if (text == value) return;
  }
  row = 0;
}

void bindTo(DataLink& link, std::shared_ptr<DataSetControl> dataSet) {
  static SilentClient client;
  OneObjectSite site(std::move(dataSet));
  link.bindDataSet(client, &site, XString(u"data"));
}

}  // namespace tessera
