// The grid's ties to its data set and image set.

#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>

#include "binding/data_sink.h"
#include "binding/image_sink.h"

namespace tessera {

// Every reader works without a data set and then gives the neutral answer that stands beside it. The grid
// keeps no row data: each call asks the data set.
class DataLink {
 public:
  // DataSet and ImageSet become what was found; null when nothing was or when the subscription failed, whose
  // status is the result.
  HResult bindDataSet(DataClient& client, ClientSite* site, const XString& id);
  HResult bindImageSet(ImageClient& client, ClientSite* site, const XString& id);
  // Ends both subscriptions for good.
  void unbind();
  // The data set is closing.
  void releaseDataSet();
  void releaseImageSet();

  DataSetControl* dataSet() const { return dataSet_.get(); }
  ImageSetControl* imageSet() const { return imageSet_.get(); }
  // Keep a component alive over a call that may let go of it.
  std::shared_ptr<DataSetControl> holdDataSet() const { return dataSet_; }
  std::shared_ptr<ImageSetControl> holdImageSet() const { return imageSet_; }

  std::int32_t rowCount() const;                   // 0
  std::int32_t currentRow() const;                 // -1
  std::int32_t level(std::int32_t row) const;      // 0
  bool rowSelected(std::int32_t row) const;        // false
  std::int32_t sysStatus(std::int32_t row) const;  // rowNormal
  bool keepDeleted() const;                        // false
  void setRowSelected(std::int32_t row, bool selected);
  void value(std::int32_t row, std::int32_t column, XValue& result) const;        // VT_EMPTY
  void valueByName(std::int32_t row, const XString& name, XValue& result) const;  // VT_EMPTY
  void text(std::int32_t row, std::int32_t column, XString& result) const;        // empty

  // Column number by name, remembered until forgetColumns(); 0 or less for an unknown name.
  std::int32_t columnIndex(const XString& name) const;
  void forgetColumns() { columnIndexes_.clear(); }

  // True while the grid itself moves the data set's current row or changes its rows: notifications that come
  // back are the grid's own doing.
  bool SelfMove() const { return selfMoves_ > 0; }
  // Raises SelfMove for a scope; scopes nest.
  class SelfMoveScope {
   public:
    explicit SelfMoveScope(DataLink& link) : link_(link) { ++link_.selfMoves_; }
    ~SelfMoveScope() { --link_.selfMoves_; }
    SelfMoveScope(const SelfMoveScope&) = delete;
    SelfMoveScope& operator=(const SelfMoveScope&) = delete;

   private:
    DataLink& link_;
  };
  // Moves the current row to `row` inside such a scope, unless it stands there.
  void syncCurrentRow(std::int32_t row);

 private:
  DataSink dataSink_;
  ImageSink imageSink_;
  std::shared_ptr<DataSetControl> dataSet_;
  std::shared_ptr<ImageSetControl> imageSet_;
  std::int32_t selfMoves_ = 0;
  mutable std::unordered_map<XString, std::int32_t> columnIndexes_;
};

}  // namespace tessera
