#include "binding/data_link.h"

namespace tessera {

HResult DataLink::bindDataSet(DataClient& client, ClientSite* site, const XString& id) {
  const HResult status = dataSink_.Bind(&client, site, id, 1, dataSetCookie);
  setDataSet(dataSink_.source());
  return status;
}

HResult DataLink::bindImageSet(ImageClient& client, ClientSite* site, const XString& id) {
  const HResult status = imageSink_.Bind(&client, site, id, imageSetCookie);
  imageSet_ = imageSink_.source();
  return status;
}

void DataLink::unbind() {
  dataSink_.Unbind();
  imageSink_.Unbind();
}

void DataLink::setDataSet(std::shared_ptr<DataSetControl> dataSet) {
  if (dataSet != dataSet_) ++binding_;
  std::swap(dataSet_, dataSet);
  if (asking_ > 0) released_.push_back(std::move(dataSet));
  forgetColumns();
}

void DataLink::releaseDataSet() { setDataSet(nullptr); }

void DataLink::releaseImageSet() { imageSet_.reset(); }

std::int32_t DataLink::rowCount() const {
  std::int32_t count = 0;
  ask([&](DataSetControl& dataSet) { dataSet.GetRowCount(count); });
  return count;
}

std::int32_t DataLink::currentRow() const {
  std::int32_t row = -1;
  ask([&](DataSetControl& dataSet) { dataSet.GetCurrentRow(row); });
  return row;
}

std::int32_t DataLink::level(std::int32_t row) const {
  std::int32_t level = 0;
  ask([&](DataSetControl& dataSet) { dataSet.GetLevel(row, level); });
  return level;
}

bool DataLink::rowSelected(std::int32_t row) const {
  std::int32_t flag = 0;
  ask([&](DataSetControl& dataSet) { dataSet.GetRowSelected(row, flag); });
  return flag == 1;
}

std::int32_t DataLink::sysStatus(std::int32_t row) const {
  std::int32_t status = rowNormal;
  ask([&](DataSetControl& dataSet) { dataSet.GetSysStatus(row, status); });
  return status;
}

bool DataLink::keepDeleted() const {
  VariantBool flag = VARIANT_FALSE;
  ask([&](DataSetControl& dataSet) { dataSet.GetKeepDeleted(flag); });
  return flag != VARIANT_FALSE;
}

XString DataLink::subsumExpr() const {
  XString text;
  ask([&](DataSetControl& dataSet) { dataSet.GetSubsumExpr(text); });
  return text;
}

void DataLink::setRowSelected(std::int32_t row, bool selected) {
  ask([&](DataSetControl& dataSet) { dataSet.SetRowSelected(row, selected ? 1 : 0); });
}

void DataLink::value(std::int32_t row, std::int32_t column, XValue& result) const {
  result.setEmpty();
  ask([&](DataSetControl& dataSet) { dataSet.GetValue(row, column, result); });
}

void DataLink::valueByName(std::int32_t row, const XString& name, XValue& result) const {
  result.setEmpty();
  ask([&](DataSetControl& dataSet) { dataSet.GetValueByName(row, name, result); });
}

void DataLink::text(std::int32_t row, std::int32_t column, XString& result) const {
  if (!dataSet_) result.clear();
  ask([&](DataSetControl& dataSet) { dataSet.GetText(row, column, result); });
}

XString DataLink::textByName(std::int32_t row, const XString& name) const {
  XString text;
  ask([&](DataSetControl& dataSet) { dataSet.GetTextByName(row, name, text); });
  return text;
}

void DataLink::setValue(std::int32_t row, std::int32_t column, const XValue& value) {
  ask([&](DataSetControl& dataSet) { dataSet.SetValue(row, column, value); });
}

void DataLink::setText(std::int32_t row, std::int32_t column, const XString& text) {
  ask([&](DataSetControl& dataSet) { dataSet.SetText(row, column, text); });
}

void DataLink::setTextByName(std::int32_t row, const XString& name, const XString& text) {
  ask([&](DataSetControl& dataSet) { dataSet.SetTextByName(row, name, text); });
}

std::int32_t DataLink::insertRow(std::int32_t row) {
  std::int32_t inserted = 0;
  ask([&](DataSetControl& dataSet) { inserted = dataSet.InsertRow(row); });
  return inserted;
}

void DataLink::deleteRow(std::int32_t row) {
  ask([&](DataSetControl& dataSet) { dataSet.DeleteRow(row); });
}

void DataLink::commitRows() {
  ask([&](DataSetControl& dataSet) { dataSet.CommitRows(); });
}

std::int32_t DataLink::columnCount() const {
  std::int32_t count = 0;
  ask([&](DataSetControl& dataSet) { dataSet.GetColumnCount(count); });
  return count;
}

std::int32_t DataLink::columnIndex(const XString& name) const {
  if (!dataSet_) return 0;
  if (const auto known = columnIndexes_.find(name); known != columnIndexes_.end()) return known->second;
  const DataSetControl* const asked = dataSet_.get();
  std::int32_t index = 0;
  ask([&](DataSetControl& dataSet) { dataSet.GetColumnIndex(name, index); });
  if (dataSet_.get() == asked) columnIndexes_.insert_or_assign(name, index);
  return index;
}

void DataLink::syncCurrentRow(std::int32_t row) {
  if (!dataSet_ || currentRow() == row) return;
  moveSelf([&] { ask([&](DataSetControl& dataSet) { dataSet.SetCurrentRow(row); }); });
}

}  // namespace tessera
