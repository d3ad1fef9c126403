// A data set in memory for tests.

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "binding/data_link.h"
#include "support/null_data_set.h"

namespace tessera {

// Rows of values under column names. Aggregates and row operations do nothing; everything else answers as a
// data set does.
class FakeDataSet : public NullDataSet {
 public:
  struct Row {
    std::vector<XValue> values;
    std::int32_t level = 0;
    std::int32_t status = rowNormal;
    std::int32_t selected = 0;
  };

  XString id{u"data"};
  std::vector<XString> columns;
  std::vector<Row> rows;
  std::int32_t currentRow = 1;

  FakeDataSet() = default;
  // Rows of texts; an empty text is a value all the same.
  FakeDataSet(std::vector<XString> names, const std::vector<std::vector<const char16_t*>>& texts);

  void GetID(XString& result) override { result = id; }

  void GetColumnIndex(const XString& name, std::int32_t& column) override;
  void GetColumnCount(std::int32_t& count) override { count = static_cast<std::int32_t>(columns.size()); }
  void GetColumnName(std::int32_t column, XString& name) override;
  void GetColumnType(std::int32_t, std::int32_t& type) override { type = columnText; }
  void GetColumnLength(std::int32_t, std::int32_t& length) override { length = 100; }
  void GetColumnScale(std::int32_t, std::int32_t& scale) override { scale = 0; }

  void GetRowCount(std::int32_t& count) override { count = static_cast<std::int32_t>(rows.size()); }
  void GetStatus(std::int32_t row, std::int32_t& status) override { GetSysStatus(row, status); }
  void GetSysStatus(std::int32_t row, std::int32_t& status) override;
  void GetLevel(std::int32_t row, std::int32_t& level) override;
  void GetRowSelected(std::int32_t row, std::int32_t& flag) override;
  void SetRowSelected(std::int32_t row, std::int32_t flag) override;

  void GetValue(std::int32_t row, std::int32_t column, XValue& value) override;
  void SetValue(std::int32_t row, std::int32_t column, const XValue& value) override;
  void GetValueByName(std::int32_t row, const XString& name, XValue& value) override;
  void GetText(std::int32_t row, std::int32_t column, XString& text) override;
  void SetText(std::int32_t row, std::int32_t column, const XString& text) override;
  void GetTextByName(std::int32_t row, const XString& name, XString& text) override;
  void SetTextByName(std::int32_t row, const XString& name, const XString& text) override;

  void GetCurrentRow(std::int32_t& row) override { row = currentRow; }
  void SetCurrentRow(std::int32_t row) override { currentRow = row; }

  void FindRow(const XString& name, const XString& value, std::int32_t& row) override;

  std::int32_t InsertRow(std::int32_t row) override { return row; }
  HResult Advise(DataSetNotifications*, std::int32_t) override { return S_OK; }

 private:
  Row* rowAt(std::int32_t row);
  XValue* valueAt(std::int32_t row, std::int32_t column);
  std::int32_t indexOf(const XString& name) const;
};

// Binds `link` to `dataSet`, whose notifications nobody hears.
void bindTo(DataLink& link, std::shared_ptr<DataSetControl> dataSet);

}  // namespace tessera
