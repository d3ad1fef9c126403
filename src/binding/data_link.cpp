#include "binding/data_link.h"

namespace tessera {

HResult DataLink::bindDataSet(DataClient& client, ClientSite* site, const XString& id) {
  const HResult status = dataSink_.Bind(&client, site, id, 1, dataSetCookie);
  dataSet_ = dataSink_.source();
  forgetColumns();
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

void DataLink::releaseDataSet() {
  dataSet_.reset();
  forgetColumns();
}

void DataLink::releaseImageSet() { imageSet_.reset(); }

std::int32_t DataLink::rowCount() const {
  std::int32_t count = 0;
  if (dataSet_) dataSet_->GetRowCount(count);
  return count;
}

std::int32_t DataLink::currentRow() const {
  std::int32_t row = -1;
  if (dataSet_) dataSet_->GetCurrentRow(row);
  return row;
}

std::int32_t DataLink::level(std::int32_t row) const {
  std::int32_t level = 0;
  if (dataSet_) dataSet_->GetLevel(row, level);
  return level;
}

bool DataLink::rowSelected(std::int32_t row) const {
  std::int32_t flag = 0;
  if (dataSet_) dataSet_->GetRowSelected(row, flag);
  return flag == 1;
}

std::int32_t DataLink::sysStatus(std::int32_t row) const {
  std::int32_t status = rowNormal;
  if (dataSet_) dataSet_->GetSysStatus(row, status);
  return status;
}

bool DataLink::keepDeleted() const {
  VariantBool flag = VARIANT_FALSE;
  if (dataSet_) dataSet_->GetKeepDeleted(flag);
  return flag != VARIANT_FALSE;
}

void DataLink::setRowSelected(std::int32_t row, bool selected) {
  if (dataSet_) dataSet_->SetRowSelected(row, selected ? 1 : 0);
}

void DataLink::value(std::int32_t row, std::int32_t column, XValue& result) const {
  result.setEmpty();
  if (dataSet_) dataSet_->GetValue(row, column, result);
}

void DataLink::valueByName(std::int32_t row, const XString& name, XValue& result) const {
  result.setEmpty();
  if (dataSet_) dataSet_->GetValueByName(row, name, result);
}

void DataLink::text(std::int32_t row, std::int32_t column, XString& result) const {
  if (dataSet_) {
    dataSet_->GetText(row, column, result);
  } else {
    result.clear();
  }
}

std::int32_t DataLink::columnIndex(const XString& name) const {
  if (!dataSet_) return 0;
  if (const auto known = columnIndexes_.find(name); known != columnIndexes_.end()) return known->second;
  std::int32_t index = 0;
  dataSet_->GetColumnIndex(name, index);
  columnIndexes_.insert_or_assign(name, index);
  return index;
}

void DataLink::syncCurrentRow(std::int32_t row) {
  const auto dataSet = dataSet_;
  if (!dataSet || currentRow() == row) return;
  SelfMoveScope scope(*this);
  dataSet->SetCurrentRow(row);
}

}  // namespace tessera
