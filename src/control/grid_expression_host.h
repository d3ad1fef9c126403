// What expressions read of the grid's data set.

#pragma once

#include <vector>

#include "binding/data_link.h"
#include "expr/expression_engine.h"

namespace tessera {

// Reads nothing but the data set that is bound at the moment; without one every reader fails. Sums, groups
// and neighbours are the data set's work.
class GridExpressionHost : public ExpressionHost {
 public:
  explicit GridExpressionHost(const DataLink& link) : link_(link) {}

  std::int32_t ColumnIndex(const XString& name) const override;
  HResult ColumnValue(std::int32_t row, std::int32_t column, XValue& result) const override;
  HResult KeywordValue(std::int32_t current, std::int32_t index, XValue& result) const override;
  HResult AggregateValue(std::int32_t current, Aggregate kind, const XString& columnName, std::int32_t level,
                         XValue& result) const override;

  // Each sum is asked for once while such a scope stands, for a paint or an exported row; otherwise by each
  // evaluation anew. On the thread that evaluates.
  class OnePass {
   public:
    explicit OnePass(const GridExpressionHost& host) : host_(host) { ++host_.passes_; }
    ~OnePass() {
      if (--host_.passes_ == 0) host_.sums_.clear();
    }
    OnePass(const OnePass&) = delete;
    OnePass& operator=(const OnePass&) = delete;

   private:
    const GridExpressionHost& host_;
  };

 private:
  // What a data set was asked for, and its answer.
  struct Sum {
    Aggregate kind;
    std::int32_t column = 0;
    std::int32_t from = 0;
    std::int32_t to = 0;
    double value = 0;
  };

  const DataLink& link_;
  mutable std::int32_t passes_ = 0;
  mutable std::vector<Sum> sums_;  // of the present pass; few
};

// Tells the engine the names of the present data set's columns, none without a data set.
void loadColumnNames(const DataLink& link, ExpressionEngine& engine);

}  // namespace tessera
