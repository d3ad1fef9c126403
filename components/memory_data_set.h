// A data set that holds its rows in memory.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <tessera/data_set_control.h>

#include "components/aggregate_cache.h"
#include "components/column_store.h"
#include "components/find_index.h"
#include "components/notifier.h"
#include "components/row_flags.h"
#include "components/row_order.h"
#include "components/sort_keys.h"
#include "components/subtotals.h"
#include "components/totals.h"

namespace tessera {

// Names and expressions in UTF-8.
struct DataSetOptions {
  std::string id = {};
  bool keepDeleted = false;  // deleted rows stay as rows with the status rowDeleted
  std::string sort = {};     // "+COL,-COL": the order at the start
  std::string subsum = {};   // "2:REGION,1:CITY": groups, the outermost first
  std::string level = {};    // the column with each row's summary level, for data that has its subtotal rows
};

// Rows, columns and levels are those of the interface. Beyond it:
//  - The first row of data is current at the start; an inserted row becomes current; a sort keeps the current
//    record current.
//  - Every write to a cell, insertion and deletion asks CanChange first. A value that does not convert to the
//    column's type, or that the cell has already, changes nothing and says nothing.
//  - With `subsum` and no `level` column the data set makes the subtotal rows itself. They cannot be written
//    or deleted. Sums follow every change at once; which rows form a group is settled again by CommitRows and
//    ApplySort, and a group whose last row goes takes its subtotal rows along.
//  - ApplySort sorts within the groups: the group columns come first. An empty sort text brings back the
//    order of loading. With a `level` column only the data rows between two summary rows change places.
//  - A row that was inserted since the last acceptChanges() is really gone when deleted, also when deleted
//    rows are kept.
// A subscriber may call back in from a notification, even change rows, but must not destroy the data set.
class MemoryDataSet final : public DataSetControl {
 public:
  explicit MemoryDataSet(ColumnStore store = {}, const DataSetOptions& options = {});
  ~MemoryDataSet() override;
  MemoryDataSet(const MemoryDataSet&) = delete;
  MemoryDataSet& operator=(const MemoryDataSet&) = delete;

  // Sends SourceClosing(false) once and lets go of all subscribers; Advise fails from then on.
  void close();
  // New columns and rows; nothing of the old ones stays. Sends StructureChanged.
  void replaceRows(ColumnStore store);
  // Adds rows of empty cells at the end, as many as there is room for; sends RowsAdded once.
  void appendRows(std::int32_t count);
  // Makes the subtotal rows anew; sends RowsReset.
  void setSubsumExpr(const std::string& text);
  void setKeepDeleted(bool keep) { keepDeleted_ = keep; }

  // Some row was inserted, deleted or written since the rows were loaded or accepted.
  bool isModified() const { return flags_.anyStatus(); }
  // Rows changed places since they were loaded or accepted, other than by coming and going. Of the orders
  // that they stood in then only that of loading is known again.
  bool isReordered() const { return reordered_; }
  // What was changed is now what the source holds: every row is normal, deleted ones are gone.
  void acceptChanges();

  // For who writes the rows away. An entry below 0 is a subtotal row, else the record in the row (from 1).
  ColumnStore& store() { return store_; }
  const ColumnStore& store() const { return store_; }
  std::int32_t entryAt(std::int32_t row) const { return order_.at(row - 1); }
  std::int32_t rowCount() const { return order_.count(); }
  std::int32_t recordStatus(std::int32_t record) const { return flags_.status(record); }
  Notifier& notifier() { return notifier_; }

  void GetID(XString& id) override;
  void GetKeepDeleted(VariantBool& flag) override;
  void GetSubsumExpr(XString& text) override;
  void GetSortExpr(XString& text) override;
  void SetSortExpr(const XString& text) override;
  void ApplySort() override;
  void GetColumnIndex(const XString& name, std::int32_t& column) override;
  void GetColumnCount(std::int32_t& count) override;
  void GetColumnName(std::int32_t column, XString& name) override;
  void GetColumnType(std::int32_t column, std::int32_t& type) override;
  void GetColumnLength(std::int32_t column, std::int32_t& length) override;
  void GetColumnScale(std::int32_t column, std::int32_t& scale) override;
  void GetRowCount(std::int32_t& count) override;
  void GetStatus(std::int32_t row, std::int32_t& status) override;
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
  void GetCurrentRow(std::int32_t& row) override;
  void SetCurrentRow(std::int32_t row) override;
  void SumRange(std::int32_t column, std::int32_t from, std::int32_t to, XValue& value) override;
  void MaxRange(std::int32_t column, std::int32_t from, std::int32_t to, XValue& value) override;
  void MinRange(std::int32_t column, std::int32_t from, std::int32_t to, XValue& value) override;
  void AverageRange(std::int32_t column, std::int32_t from, std::int32_t to, XValue& value) override;
  void RealCount(std::int32_t from, std::int32_t to, std::int32_t& count) override;
  void GroupStart(std::int32_t row, std::int32_t level, std::int32_t& result) override;
  void GroupEnd(std::int32_t row, std::int32_t level, std::int32_t& result) override;
  void AdjacentRow(std::int32_t row, std::int32_t step, std::int32_t& result) override;
  void FindRow(const XString& name, const XString& value, std::int32_t& row) override;
  void CommitRows() override;
  std::int32_t InsertRow(std::int32_t row) override;
  void DeleteRow(std::int32_t row) override;
  HResult Advise(DataSetNotifications* sink, std::int32_t flag) override;
  void Unadvise(DataSetNotifications* sink) override;

 private:
  // Rows from 0, `end` excluded.
  struct Range {
    std::int32_t begin = 0;
    std::int32_t end = 0;
  };
  // What stays the same about the current row when rows change places.
  struct Anchor {
    std::int32_t record = -1;
    std::int32_t depth = 0;  // above 0: the subtotal row of this depth that follows the record
  };

  bool hasRow(std::int32_t row) const { return row >= 1 && row <= order_.count(); }
  bool hasColumn(std::int32_t column) const { return column >= 1 && column <= store_.columnCount(); }
  bool isWritable(std::int32_t row, std::int32_t column) const;
  DataRows dataRows() const { return {store_, order_, flags_, levelColumn_}; }
  std::int32_t levelAt(std::int32_t row) const;
  bool isSummary(std::int32_t row) const { return levelAt(row) > 0; }
  Range rangeOf(std::int32_t from, std::int32_t to) const;
  Range groupAround(std::int32_t row, std::int32_t level) const;
  bool closesGroup(std::int32_t row, std::int32_t level) const;
  const XValue& aggregate(RangeFigure kind, std::int32_t column, std::int32_t from, std::int32_t to);
  void compute(const AggregateQuery& query, XValue& result) const;

  void takeNewStore();
  void readSubsum();
  bool arrange();
  bool hasOrder(const std::vector<std::int32_t>& records) const;
  bool standsAsLoaded() const;
  std::vector<SortKey> withGroupKeys(std::vector<SortKey> keys) const;
  void sortBetweenSummaries(std::vector<std::int32_t>& records, const std::vector<SortKey>& keys) const;
  Anchor anchorOfCurrent() const;
  void resetRows(const Anchor& anchor);
  void addRow(std::int32_t place, std::int32_t record);
  void removeRow(std::int32_t place);
  bool shows(std::int32_t row, std::int32_t column, const XValue& value);
  void cellWritten(std::int32_t row, std::int32_t column);
  void rowNumbersChanged();

  DataSetOptions options_;
  XString sortExpr_;
  bool keepDeleted_ = false;
  bool closed_ = false;
  bool reordered_ = false;
  bool baseIsAsLoaded_ = true;       // the order when they were loaded or accepted is that of loading
  std::int32_t levelColumn_ = -1;    // from 0; -1: no such column
  std::vector<GroupKey> groupKeys_;  // of the subsum text, whoever makes the subtotal rows
  std::int32_t current_ = 0;         // from 1; 0: none
  std::uint64_t revision_ = 1;

  ColumnStore store_;
  RowOrder order_;
  RowFlags flags_;
  Subtotals subtotals_;
  std::vector<std::unique_ptr<FindIndex>> finds_;  // by column; null until the column is searched
  AggregateCache aggregates_;
  Notifier notifier_;
  XValue scratch_;
};

}  // namespace tessera
