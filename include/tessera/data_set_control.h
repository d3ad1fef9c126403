// The interface of a data set: the rows that a grid shows.

#pragma once

#include <cstdint>

#include <tessera/component.h>
#include <tessera/status.h>
#include <tessera/xstring.h>
#include <tessera/xvalue.h>

namespace tessera {

// What a data set tells its subscribers. Calls come on the thread that changed the data set, in the middle of
// the change's call, and may come while the subscriber itself is calling the data set.
class DataSetNotifications {
 public:
  virtual ~DataSetNotifications() = default;

  virtual HResult SortReset() = 0;
  virtual HResult StructureChanged(std::int32_t value) = 0;
  virtual HResult RowsAdded(std::int32_t rowCount) = 0;  // the new row count
  virtual HResult DataChanged(std::int32_t value) = 0;
  // A vote; `allowed` false asks the data set to refuse the change.
  virtual HResult CanChange(std::int32_t value, VariantBool& allowed) = 0;
  virtual HResult CurrentRowChanged(std::int32_t row) = 0;
  virtual HResult RowsReset() = 0;
  virtual HResult Reserved(std::int32_t value) = 0;
  virtual HResult RowInserted(std::int32_t row) = 0;
  virtual HResult RowDeleted(std::int32_t row) = 0;
  virtual HResult CellChanged(std::int32_t row, std::int32_t column) = 0;
  // With a false `flag` the data set is closing: let go of it.
  virtual HResult SourceClosing(VariantBool flag) = 0;
};

// Column types as GetColumnType gives them; every other number means text.
inline constexpr std::int32_t columnText = 1;
inline constexpr std::int32_t columnInteger = 2;
inline constexpr std::int32_t columnDecimal = 3;
inline constexpr std::int32_t columnLong = 9;

// GetStatus and GetSysStatus.
inline constexpr std::int32_t rowNormal = 0;
inline constexpr std::int32_t rowInserted = 1;
inline constexpr std::int32_t rowDeleted = 2;
inline constexpr std::int32_t rowUpdated = 3;

// Rows and columns are numbered from 1. Every call writes its out arguments, also for a row or column that
// does not exist (then: 0, the empty text, VT_EMPTY). A cell without a value is VT_EMPTY in a column of
// numbers and the empty text in a column of texts. Text and value out arguments may be used again and again;
// implementers write them with XString::assign and XValue::setText, which keep their storage.
class DataSetControl : public Component {
 public:
  virtual void GetID(XString& id) = 0;
  virtual void GetKeepDeleted(VariantBool& flag) = 0;  // true: deleted rows stay as rows
  virtual void GetSubsumExpr(XString& text) = 0;       // "2:REGION,1:CITY"; the outermost group first
  virtual void GetSortExpr(XString& text) = 0;
  virtual void SetSortExpr(const XString& text) = 0;  // "+COL" or "-COL", separated by commas
  virtual void ApplySort() = 0;

  virtual void GetColumnIndex(const XString& name, std::int32_t& column) = 0;  // 0 or less: no such column
  virtual void GetColumnCount(std::int32_t& count) = 0;
  virtual void GetColumnName(std::int32_t column, XString& name) = 0;
  virtual void GetColumnType(std::int32_t column, std::int32_t& type) = 0;
  virtual void GetColumnLength(std::int32_t column, std::int32_t& length) = 0;  // longest text, in characters
  virtual void GetColumnScale(std::int32_t column, std::int32_t& scale) = 0;    // digits after the point

  virtual void GetRowCount(std::int32_t& count) = 0;
  virtual void GetStatus(std::int32_t row, std::int32_t& status) = 0;
  virtual void GetSysStatus(std::int32_t row, std::int32_t& status) = 0;
  virtual void GetLevel(std::int32_t row, std::int32_t& level) = 0;  // 0 data row; above 0 summary row
  virtual void GetRowSelected(std::int32_t row, std::int32_t& flag) = 0;
  virtual void SetRowSelected(std::int32_t row, std::int32_t flag) = 0;

  virtual void GetValue(std::int32_t row, std::int32_t column, XValue& value) = 0;
  virtual void SetValue(std::int32_t row, std::int32_t column, const XValue& value) = 0;
  virtual void GetValueByName(std::int32_t row, const XString& name, XValue& value) = 0;
  virtual void GetText(std::int32_t row, std::int32_t column, XString& text) = 0;
  virtual void SetText(std::int32_t row, std::int32_t column, const XString& text) = 0;
  virtual void GetTextByName(std::int32_t row, const XString& name, XString& text) = 0;
  virtual void SetTextByName(std::int32_t row, const XString& name, const XString& text) = 0;

  virtual void GetCurrentRow(std::int32_t& row) = 0;  // 0: none
  virtual void SetCurrentRow(std::int32_t row) = 0;   // notifies

  // Over the data rows from `from` to `to`, both included; 0, 0 means all rows. Summary rows and deleted rows
  // take no part. The average is a VT_R8; without a row the value is VT_EMPTY.
  virtual void SumRange(std::int32_t column, std::int32_t from, std::int32_t to, XValue& value) = 0;
  virtual void MaxRange(std::int32_t column, std::int32_t from, std::int32_t to, XValue& value) = 0;
  virtual void MinRange(std::int32_t column, std::int32_t from, std::int32_t to, XValue& value) = 0;
  virtual void AverageRange(std::int32_t column, std::int32_t from, std::int32_t to, XValue& value) = 0;
  // How many data rows stand there.
  virtual void RealCount(std::int32_t from, std::int32_t to, std::int32_t& count) = 0;
  // First and last data row of the group of `level` around `row`.
  virtual void GroupStart(std::int32_t row, std::int32_t level, std::int32_t& result) = 0;
  virtual void GroupEnd(std::int32_t row, std::int32_t level, std::int32_t& result) = 0;
  // The next (step 1) or previous (step -1) data row; 0 when there is none.
  virtual void AdjacentRow(std::int32_t row, std::int32_t step, std::int32_t& result) = 0;
  // The first row whose column `name` has this text; 0 or less when there is none.
  virtual void FindRow(const XString& name, const XString& value, std::int32_t& row) = 0;

  virtual void CommitRows() = 0;
  // Inserts before `row`, at the end when `row` is past it; the result is the new row's number.
  virtual std::int32_t InsertRow(std::int32_t row) = 0;
  virtual void DeleteRow(std::int32_t row) = 0;

  // The subscriber is borrowed until Unadvise. A failing status leaves it unsubscribed.
  virtual HResult Advise(DataSetNotifications* sink, std::int32_t flag) = 0;
  virtual void Unadvise(DataSetNotifications* sink) = 0;
};

}  // namespace tessera
