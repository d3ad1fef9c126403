#include "interaction/check_cells.h"

#include "cells/cell_kinds.h"
#include "interaction/grid_watch.h"

namespace tessera {
namespace {

bool isWhole(const XValue& value) { return value.type() == VT_I4 || value.type() == VT_I8; }
bool isReal(const XValue& value) { return value.type() == VT_R4 || value.type() == VT_R8; }
bool isZero(const XValue& value) { return isWhole(value) ? value.asInt64() == 0 : value.asDouble() == 0; }

// A truth in the type of `like`, which is a text or a number.
XValue truthLike(const XValue& like, bool truth) {
  if (isWhole(like)) return XValue::ofInt(truth ? 1 : 0);
  if (isReal(like)) return XValue::ofDouble(truth ? 1 : 0);
  return XValue::ofText(truth ? u"T" : u"F");
}

// What an empty cell counts as: `number` in a column of numbers, the empty text in the others.
void fillEmpty(XValue& value, DataSetControl& dataSet, std::int32_t column, std::int32_t number) {
  if (value.type() != VT_EMPTY) return;
  std::int32_t type = columnText;
  dataSet.GetColumnType(column, type);
  const bool isWholeColumn = type == columnInteger || type == columnLong;
  value = isWholeColumn           ? XValue::ofInt(number)
          : type == columnDecimal ? XValue::ofDouble(number)
                                  : XValue::ofText(u"");
}

bool isText(const XValue& value) { return value.type() == VT_BSTR; }
bool isNumber(const XValue& value) { return isWhole(value) || isReal(value); }

XValue flipped(const XValue& value, bool textBecomesTrue) {
  if (isText(value)) return truthLike(value, textBecomesTrue);
  return isNumber(value) ? truthLike(value, isZero(value)) : value;
}

}  // namespace

XValue checkedByMouse(const XValue& value) { return flipped(value, value.asText().view().starts_with(u'F')); }
XValue checkedByKey(const XValue& value) { return flipped(value, !value.asText().view().starts_with(u'T')); }

bool isRadioSet(const XValue& value) {
  if (isText(value)) return !isOff(value.asText());
  return isNumber(value) && !isZero(value);
}

XValue radioSetValue(const XValue& value) {
  return isText(value) || isNumber(value) ? truthLike(value, true) : value;
}

// The data set may make the columns anew in the middle of an answer: what is needed of the column is copied
// first.
void flipCheck(GridParts& parts, const ColumnRecord& column, std::int32_t row, CheckRule rule) {
  const auto dataSet = parts.link.holdDataSet();
  if (!dataSet) return;
  const XString name = column.refColumnId;
  XValue value;
  dataSet->GetValueByName(row, name, value);
  const std::int32_t index = parts.link.columnIndex(name);
  fillEmpty(value, *dataSet, index, 1);  // it is drawn as checked
  dataSet->SetValue(row, index, rule(value));
}

// Each write notifies; one paint at the end is enough.
void setRadio(GridParts& parts, const GridServices& services, const ColumnRecord& column, std::int32_t row) {
  const auto dataSet = parts.link.holdDataSet();
  if (!dataSet) return;
  const GridWatch watch(parts, services);
  const XString name = column.refColumnId;
  XValue value;
  dataSet->GetValueByName(row, name, value);
  const std::int32_t index = parts.link.columnIndex(name);
  fillEmpty(value, *dataSet, index, 0);  // nobody has chosen it
  if (isRadioSet(value)) return;
  const DrawHold hold(parts);
  const std::int32_t count = parts.link.rowCount();
  const XValue unset = XValue::ofInt(0);
  for (std::int32_t other = 1; other <= count && watch.holds(); ++other)
    dataSet->SetValue(other, index, unset);
  if (watch.holds()) dataSet->SetValue(row, index, radioSetValue(value));
}

}  // namespace tessera
