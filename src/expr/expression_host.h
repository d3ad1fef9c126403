// What an expression can ask of the grid around it.

#pragma once

#include <cstdint>

#include <tessera/status.h>
#include <tessera/xvalue.h>

namespace tessera {

// In this order: the number that KEYWORD() takes.
inline constexpr const char16_t* exprKeywords[] = {u"CURLEVEL", u"CURREC",   u"FIRSTREC",  u"LASTREC",
                                                   u"NEXTREC",  u"PREVREC",  u"REALCOUNT", u"RECCOUNT",
                                                   u"STATUS",   u"SYSSTATUS"};

// Sums over rows; "Group" ones go over the group of the row under evaluation.
enum class Aggregate : std::int32_t {
  Average = 1,
  Max = 2,
  Min = 3,
  GroupAverage = 4,
  GroupCount = 5,
  GroupMax = 6,
  GroupMin = 7,
  GroupRealCount = 8,
  GroupSum = 9,
  Sum = 10,
};

// Rows and columns are numbered from 1; `current` is the row under evaluation. Each reader returns S_OK, or a
// failing status and leaves `result` alone. `result` is used again and again: texts are written with
// XValue::setText, which keeps the storage. The engine reads no row data but through these.
class ExpressionHost {
 public:
  virtual ~ExpressionHost() = default;

  // The number of the column that `name`, as it was typed, stands for. Asked once for each reference, when it
  // is compiled.
  virtual std::int32_t ColumnIndex(const XString& name) const = 0;
  // VT_I4, VT_R4 and VT_I8 arrive as VT_R8.
  virtual HResult ColumnValue(std::int32_t row, std::int32_t column, XValue& result) const = 0;
  // `index` counts in exprKeywords.
  virtual HResult KeywordValue(std::int32_t current, std::int32_t index, XValue& result) const = 0;
  // Always a VT_R8. The group is the one of the level that `current` has; `level` has no effect.
  virtual HResult AggregateValue(std::int32_t current, Aggregate kind, const XString& columnName,
                                 std::int32_t level, XValue& result) const = 0;
};

}  // namespace tessera
