// A data set without columns and rows, for tests that only pass one around.

#pragma once

#include <tessera/data_set_control.h>

namespace tessera {

class NullDataSet : public DataSetControl {
 public:
  void GetID(XString& id) override { id.clear(); }
  void GetKeepDeleted(VariantBool& flag) override { flag = VARIANT_FALSE; }
  void GetSubsumExpr(XString& text) override { text.clear(); }
  void GetSortExpr(XString& text) override { text.clear(); }
  void SetSortExpr(const XString&) override {}
  void ApplySort() override {}
  void GetColumnIndex(const XString&, std::int32_t& column) override { column = 0; }
  void GetColumnCount(std::int32_t& count) override { count = 0; }
  void GetColumnName(std::int32_t, XString& name) override { name.clear(); }
  void GetColumnType(std::int32_t, std::int32_t& type) override { type = 0; }
  void GetColumnLength(std::int32_t, std::int32_t& length) override { length = 0; }
  void GetColumnScale(std::int32_t, std::int32_t& scale) override { scale = 0; }
  void GetRowCount(std::int32_t& count) override { count = 0; }
  void GetStatus(std::int32_t, std::int32_t& status) override { status = 0; }
  void GetSysStatus(std::int32_t, std::int32_t& status) override { status = 0; }
  void GetLevel(std::int32_t, std::int32_t& level) override { level = 0; }
  void GetRowSelected(std::int32_t, std::int32_t& flag) override { flag = 0; }
  void SetRowSelected(std::int32_t, std::int32_t) override {}
  void GetValue(std::int32_t, std::int32_t, XValue& value) override { value.setEmpty(); }
  void SetValue(std::int32_t, std::int32_t, const XValue&) override {}
  void GetValueByName(std::int32_t, const XString&, XValue& value) override { value.setEmpty(); }
  void GetText(std::int32_t, std::int32_t, XString& text) override { text.clear(); }
  void SetText(std::int32_t, std::int32_t, const XString&) override {}
  void GetTextByName(std::int32_t, const XString&, XString& text) override { text.clear(); }
  void SetTextByName(std::int32_t, const XString&, const XString&) override {}
  void GetCurrentRow(std::int32_t& row) override { row = 0; }
  void SetCurrentRow(std::int32_t) override {}
  void SumRange(std::int32_t, std::int32_t, std::int32_t, XValue& value) override { value.setEmpty(); }
  void MaxRange(std::int32_t, std::int32_t, std::int32_t, XValue& value) override { value.setEmpty(); }
  void MinRange(std::int32_t, std::int32_t, std::int32_t, XValue& value) override { value.setEmpty(); }
  void AverageRange(std::int32_t, std::int32_t, std::int32_t, XValue& value) override { value.setEmpty(); }
  void RealCount(std::int32_t, std::int32_t, std::int32_t& count) override { count = 0; }
  void GroupStart(std::int32_t, std::int32_t, std::int32_t& result) override { result = 0; }
  void GroupEnd(std::int32_t, std::int32_t, std::int32_t& result) override { result = 0; }
  void AdjacentRow(std::int32_t, std::int32_t, std::int32_t& result) override { result = 0; }
  void FindRow(const XString&, const XString&, std::int32_t& row) override { row = 0; }
  void CommitRows() override {}
  std::int32_t InsertRow(std::int32_t) override { return 0; }
  void DeleteRow(std::int32_t) override {}
  HResult Advise(DataSetNotifications*, std::int32_t) override { return E_FAIL; }
  void Unadvise(DataSetNotifications*) override {}
};

}  // namespace tessera
