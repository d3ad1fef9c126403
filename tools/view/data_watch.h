// Hears that anything about the data of a document changed.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "tools/view/view_document.h"

namespace tessera {

// Holds the data sets as long as it listens to them.
class DataWatch : public DataSetNotifications {
 public:
  // `changed` is called in the middle of each change and must only take note of it.
  DataWatch(const ViewDocument& document, std::function<void()> changed) : changed_(std::move(changed)) {
    for (const OpenedDataSet& data : document.components().dataSets) {
      if (succeeded(data.rows->Advise(this, 0))) watched_.push_back(data.rows);
    }
  }
  ~DataWatch() override {
    for (const auto& rows : watched_) rows->Unadvise(this);
  }
  DataWatch(const DataWatch&) = delete;
  DataWatch& operator=(const DataWatch&) = delete;

  // So far, in all data sets. A change that was asked for and did not come was no change, or was refused.
  struct Counts {
    std::int64_t asked = 0;
    std::int64_t written = 0;  // cells
  };
  const Counts& counts() const { return counts_; }

  HResult SortReset() override { return note(); }
  HResult StructureChanged(std::int32_t) override { return note(); }
  HResult RowsAdded(std::int32_t) override { return note(); }
  HResult DataChanged(std::int32_t) override { return note(); }
  HResult CanChange(std::int32_t, VariantBool& allowed) override {
    ++counts_.asked;
    allowed = VARIANT_TRUE;
    return S_OK;
  }
  HResult CurrentRowChanged(std::int32_t) override { return note(); }
  HResult RowsReset() override { return note(); }
  HResult Reserved(std::int32_t) override { return S_OK; }
  HResult RowInserted(std::int32_t) override { return note(); }
  HResult RowDeleted(std::int32_t) override { return note(); }
  HResult CellChanged(std::int32_t, std::int32_t) override {
    ++counts_.written;
    return note();
  }
  HResult SourceClosing(VariantBool) override { return note(); }

 private:
  HResult note() {
    changed_();
    return S_OK;
  }

  std::function<void()> changed_;
  Counts counts_;
  std::vector<std::shared_ptr<MemoryDataSet>> watched_;
};

}  // namespace tessera
