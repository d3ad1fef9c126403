// What expressions read of the grid's data set.

#pragma once

#include "binding/data_link.h"
#include "expr/expression_engine.h"

namespace tessera {

// Reads nothing but the data set that is bound at the moment; without one every reader fails. Sums, groups
// and neighbours are the data set's work, and are asked for again by each evaluation.
class GridExpressionHost : public ExpressionHost {
 public:
  explicit GridExpressionHost(const DataLink& link) : link_(link) {}

  std::int32_t ColumnIndex(const XString& name) const override;
  HResult ColumnValue(std::int32_t row, std::int32_t column, XValue& result) const override;
  HResult KeywordValue(std::int32_t current, std::int32_t index, XValue& result) const override;
  HResult AggregateValue(std::int32_t current, Aggregate kind, const XString& columnName, std::int32_t level,
                         XValue& result) const override;

 private:
  const DataLink& link_;
};

// Tells the engine the names of the present data set's columns, none without a data set.
void loadColumnNames(const DataLink& link, ExpressionEngine& engine);

}  // namespace tessera
