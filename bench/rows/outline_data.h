// A data set of a million rows in a tree or in groups, which answers as fast as one can.

#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "tests/support/null_data_set.h"

namespace tessera {

// Column 1 is the level of a tree's rows, column 2 the row's number at the start. In groups a row that sums
// others of level L has the key L + 1; one row that comes in is summed up to the outermost group when rows
// are committed, and the last one of a group takes its sums along.
class OutlineData : public NullDataSet {
 public:
  static constexpr std::int32_t groupLevels = 3;

  static std::shared_ptr<OutlineData> tree(std::int32_t depth, std::int32_t fanOut, std::int32_t top);
  static std::shared_ptr<OutlineData> groups(std::int32_t members, std::int32_t fanOut, std::int32_t top);

  std::int32_t rowCount() const { return static_cast<std::int32_t>(levels_.size()); }
  std::int32_t levelOf(std::int32_t row) const { return levels_[static_cast<std::size_t>(row) - 1]; }
  // The level of the outermost sum that the next commit makes; none for a row among others.
  void sumFrom(std::int32_t level) { sumsFrom_ = level; }
  void current(std::int32_t row) {
    current_ = row;
    if (sink_) sink_->CurrentRowChanged(row);
  }
  void reset() { sink_->RowsReset(); }
  // What its own rows took to come and go since it was last asked.
  double ownMilliseconds() { return std::exchange(own_, 0); }

  void GetSubsumExpr(XString& text) override { text = isTree_ ? u"" : u"2:A,3:B,4:C"; }
  void GetColumnIndex(const XString& name, std::int32_t& column) override;
  void GetColumnCount(std::int32_t& count) override { count = 2; }
  void GetRowCount(std::int32_t& count) override { count = rowCount(); }
  void GetLevel(std::int32_t row, std::int32_t& level) override;
  void GetValue(std::int32_t row, std::int32_t column, XValue& value) override;
  void SetValue(std::int32_t row, std::int32_t column, const XValue& value) override;
  void GetText(std::int32_t row, std::int32_t column, XString& text) override;
  void SetText(std::int32_t row, std::int32_t column, const XString& text) override;
  void SetTextByName(std::int32_t row, const XString& name, const XString& text) override;
  void GetCurrentRow(std::int32_t& row) override { row = current_; }
  void SetCurrentRow(std::int32_t row) override { current(row); }
  std::int32_t InsertRow(std::int32_t row) override;
  void DeleteRow(std::int32_t row) override;
  void CommitRows() override;
  HResult Advise(DataSetNotifications* sink, std::int32_t) override {
    sink_ = sink;
    return S_OK;
  }
  void Unadvise(DataSetNotifications*) override { sink_ = nullptr; }

 private:
  void add(std::int32_t level) { levels_.push_back(static_cast<std::int8_t>(level)); }
  bool isSum(std::int32_t row) const { return !isTree_ && levelOf(row) <= groupLevels; }

  std::vector<std::int8_t> levels_;  // from 1 on, as the grid has them
  bool isTree_ = true;
  std::int32_t current_ = 1;
  std::int32_t inserted_ = 0;
  std::int32_t sumsFrom_ = groupLevels + 1;
  double own_ = 0;
  XString key_;  // of the row that came last
  DataSetNotifications* sink_ = nullptr;
};

}  // namespace tessera
