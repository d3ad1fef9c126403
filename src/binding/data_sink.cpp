#include "binding/data_sink.h"

#include <utility>

#include "binding/component_locator.h"

namespace tessera {

DataSink::~DataSink() { Unbind(); }

HResult DataSink::Bind(DataClient* client, ClientSite* site, const XString& id, std::int32_t adviseFlag,
                       std::int32_t cookie) {
  client_ = client;
  id_ = id;
  cookie_ = cookie;
  leaveSource();
  if (!client_) return S_OK;
  const auto found = locateDataSet(site, id_, true);
  source_ = found;
  if (!found) return S_OK;
  const HResult status = found->Advise(this, adviseFlag);
  // The source may have called back and bound this sink elsewhere.
  if (!succeeded(status) && source_ == found) source_.reset();
  return status;
}

void DataSink::Unbind() {
  leaveSource();
  client_ = nullptr;
}

// The reference is moved out first: leaving may notify, and nothing may be bound twice then.
void DataSink::leaveSource() {
  if (const auto source = std::exchange(source_, nullptr)) source->Unadvise(this);
}

template <class Method, class... Arguments>
HResult DataSink::forward(Method method, Arguments&&... arguments) {
  return client_ ? (client_->*method)(cookie_, std::forward<Arguments>(arguments)...) : E_NOTIMPL;
}

HResult DataSink::SortReset() { return forward(&DataClient::SortReset); }
HResult DataSink::StructureChanged(std::int32_t value) {
  return forward(&DataClient::StructureChanged, value);
}
HResult DataSink::RowsAdded(std::int32_t rowCount) { return forward(&DataClient::RowsAdded, rowCount); }
HResult DataSink::DataChanged(std::int32_t value) { return forward(&DataClient::DataChanged, value); }
HResult DataSink::CanChange(std::int32_t value, VariantBool& allowed) {
  if (!client_) allowed = VARIANT_TRUE;
  return forward(&DataClient::CanChange, value, allowed);
}
HResult DataSink::CurrentRowChanged(std::int32_t row) { return forward(&DataClient::CurrentRowChanged, row); }
HResult DataSink::RowsReset() { return forward(&DataClient::RowsReset); }
HResult DataSink::Reserved(std::int32_t value) { return forward(&DataClient::Reserved, value); }
HResult DataSink::RowInserted(std::int32_t row) { return forward(&DataClient::RowInserted, row); }
HResult DataSink::RowDeleted(std::int32_t row) { return forward(&DataClient::RowDeleted, row); }
HResult DataSink::CellChanged(std::int32_t row, std::int32_t column) {
  return forward(&DataClient::CellChanged, row, column);
}
HResult DataSink::SourceClosing(VariantBool flag) { return forward(&DataClient::SourceClosing, flag); }

}  // namespace tessera
