// Sums, extremes and averages over records.

#pragma once

#include <cstdint>

#include <tessera/xvalue.h>

#include "components/column_store.h"
#include "components/row_flags.h"
#include "components/row_order.h"

namespace tessera {

// Which records of a set are data rows that count: no subtotal, no summary row of the file, not deleted.
class DataRows {
 public:
  // `levelColumn` holds each record's summary level; -1 when there is no such column.
  DataRows(const ColumnStore& store, const RowOrder& order, const RowFlags& flags, std::int32_t levelColumn)
      : store_(store), order_(order), flags_(flags), levelColumn_(levelColumn) {}

  // The summary level that the file gives a record.
  std::int32_t levelOf(std::int32_t record) const;
  // Calls with the record of each counting row from `from` to before `to`, rows from 0.
  template <class Visit>
  void each(std::int32_t from, std::int32_t to, Visit visit) const {
    const bool plain = levelColumn_ < 0 && !flags_.anyStatus();
    for (std::int32_t row = from; row < to; ++row) {
      const std::int32_t record = order_.at(row);
      if (record >= 0 && (plain || counts(record))) visit(record);
    }
  }

 private:
  bool counts(std::int32_t record) const {
    return flags_.status(record) != rowDeleted && (levelColumn_ < 0 || levelOf(record) <= 0);
  }

  const ColumnStore& store_;
  const RowOrder& order_;
  const RowFlags& flags_;
  std::int32_t levelColumn_;
};

// A sum that does not lose small parts and does not wrap around.
class Total {
 public:
  void addWhole(std::int64_t value);
  void addReal(double value);
  std::int64_t count() const { return count_; }
  double real() const { return wholeFits_ ? static_cast<double>(whole_) + real_ + lost_ : real_ + lost_; }
  // For an integer column VT_I4 when it fits; other whole numbers VT_I8, past that and for decimals VT_R8;
  // VT_EMPTY when nothing was added.
  void value(const Column& column, XValue& result) const;

 private:
  std::int64_t whole_ = 0;
  bool wholeFits_ = true;
  double real_ = 0;
  double lost_ = 0;  // what rounding took from real_
  std::int64_t count_ = 0;
};

// Empty cells take no part. The sum of a text column is the sum of nothing.
Total totalOf(const DataRows& rows, const Column& column, std::int32_t from, std::int32_t to);
// The record with the greatest (`greatest`) or least cell, -1 without one.
std::int32_t extremeOf(const DataRows& rows, const Column& column, std::int32_t from, std::int32_t to,
                       bool greatest);

}  // namespace tessera
