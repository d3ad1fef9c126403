// The grid's ties to its data set and image set.

#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

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
  // Another number for each data set that was bound here: addresses are used again.
  std::uint64_t binding() const { return binding_; }
  // Keep a component alive over a call that may let go of it.
  std::shared_ptr<DataSetControl> holdDataSet() const { return dataSet_; }
  std::shared_ptr<ImageSetControl> holdImageSet() const { return imageSet_; }

  std::int32_t rowCount() const;                   // 0
  std::int32_t currentRow() const;                 // -1
  std::int32_t level(std::int32_t row) const;      // 0
  bool rowSelected(std::int32_t row) const;        // false
  std::int32_t sysStatus(std::int32_t row) const;  // rowNormal
  bool keepDeleted() const;                        // false
  XString subsumExpr() const;                      // empty
  void setRowSelected(std::int32_t row, bool selected);
  void value(std::int32_t row, std::int32_t column, XValue& result) const;        // VT_EMPTY
  void valueByName(std::int32_t row, const XString& name, XValue& result) const;  // VT_EMPTY
  void text(std::int32_t row, std::int32_t column, XString& result) const;        // empty
  XString textByName(std::int32_t row, const XString& name) const;                // empty

  void setValue(std::int32_t row, std::int32_t column, const XValue& value);
  void setText(std::int32_t row, std::int32_t column, const XString& text);
  void setTextByName(std::int32_t row, const XString& name, const XString& text);
  // The number of the new row, 0 or less when there is none.
  std::int32_t insertRow(std::int32_t row);
  void deleteRow(std::int32_t row);
  void commitRows();
  std::int32_t columnCount() const;  // 0

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
  // Runs `call` inside such a scope. Rows that somebody else brought in or took out meanwhile were not heard:
  // the client is told afterwards that the rows are others.
  template <class Call>
  void moveSelf(Call call) {
    const auto dataSet = dataSet_;
    const std::int32_t before = rowCount();
    {
      SelfMoveScope scope(*this);
      call();
    }
    if (!SelfMove() && dataSet_ == dataSet && rowCount() != before) dataSink_.RowsReset();
  }
  // Moves the current row to `row` that way, unless it stands there.
  void syncCurrentRow(std::int32_t row);

 private:
  // Calls of the data set nest. What is released meanwhile may be in the middle of one: it goes with the
  // last.
  class Asking {
   public:
    explicit Asking(const DataLink& link) : link_(link) { ++link_.asking_; }
    ~Asking() {
      if (--link_.asking_ == 0) std::exchange(link_.released_, {});
    }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;

   private:
    const DataLink& link_;
  };
  template <class Work>
  void ask(Work work) const {
    if (!dataSet_) return;
    const Asking asking(*this);
    work(*dataSet_);
  }
  void setDataSet(std::shared_ptr<DataSetControl> dataSet);

  DataSink dataSink_;
  ImageSink imageSink_;
  std::shared_ptr<DataSetControl> dataSet_;
  std::shared_ptr<ImageSetControl> imageSet_;
  std::uint64_t binding_ = 0;
  std::int32_t selfMoves_ = 0;
  mutable std::int32_t asking_ = 0;
  mutable std::vector<std::shared_ptr<DataSetControl>> released_;
  mutable std::unordered_map<XString, std::int32_t> columnIndexes_;
};

}  // namespace tessera
