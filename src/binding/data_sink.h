// The subscription to a data set.

#pragma once

#include <memory>

#include <tessera/data_set_control.h>
#include <tessera/hosting.h>

#include "binding/data_client.h"

namespace tessera {

// Detached until Bind, bound while a source is set. Without a client every notification answers E_NOTIMPL.
class DataSink : public DataSetNotifications {
 public:
  DataSink() = default;
  ~DataSink() override;
  DataSink(const DataSink&) = delete;
  DataSink& operator=(const DataSink&) = delete;

  // Leaves the present source, then finds the component `id` on the site and subscribes to it with
  // `adviseFlag`. Success when nothing was found, too: source() is null then. A failing status is the
  // subscription's. `client` and `site` are borrowed; with a null client nothing is searched.
  HResult Bind(DataClient* client, ClientSite* site, const XString& id, std::int32_t adviseFlag,
               std::int32_t cookie);
  void Unbind();

  const std::shared_ptr<DataSetControl>& source() const { return source_; }

  HResult SortReset() override;
  HResult StructureChanged(std::int32_t value) override;
  HResult RowsAdded(std::int32_t rowCount) override;
  HResult DataChanged(std::int32_t value) override;
  HResult CanChange(std::int32_t value, VariantBool& allowed) override;
  HResult CurrentRowChanged(std::int32_t row) override;
  HResult RowsReset() override;
  HResult Reserved(std::int32_t value) override;
  HResult RowInserted(std::int32_t row) override;
  HResult RowDeleted(std::int32_t row) override;
  HResult CellChanged(std::int32_t row, std::int32_t column) override;
  HResult SourceClosing(VariantBool flag) override;

 private:
  void leaveSource();
  template <class Method, class... Arguments>
  HResult forward(Method method, Arguments&&... arguments);

  DataClient* client_ = nullptr;
  XString id_;
  std::int32_t cookie_ = 0;
  std::shared_ptr<DataSetControl> source_;
};

}  // namespace tessera
