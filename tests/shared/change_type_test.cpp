#include "shared/change_type.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace tessera {
namespace {

XValue integer(VarType type, std::int64_t value) {
  XValue result;
  result.setInteger(type, value);
  return result;
}

XValue single(float value) {
  XValue result;
  result.setFloat(value);
  return result;
}

XValue rawBool(VariantBool value) {
  XValue result;
  result.setRawBool(value);
  return result;
}

XValue text(std::u16string_view value) { return XValue::ofText(value); }
XValue real(double value) { return XValue::ofDouble(value); }
XValue failed(HResult status) { return XValue::ofError(status); }

// `expected` is the result, or the failure as an error value.
struct Row {
  XValue from;
  VarType to;
  XValue expected;
};

void check(const std::vector<Row>& rows) {
  const XValue untouched = text(u"untouched");
  for (const Row& row : rows) {
    SCOPED_TRACE(textOf(row.from).toUtf8() + " of type " + std::to_string(row.from.type()) + " to type " +
                 std::to_string(row.to));
    XValue result = untouched;
    const HResult status = changeType(row.from, row.to, result);
    if (row.expected.type() == VT_ERROR) {
      EXPECT_EQ(status, row.expected.asError());
      EXPECT_EQ(result, untouched);
      continue;
    }
    EXPECT_EQ(status, S_OK);
    EXPECT_EQ(result.type(), row.to);
    EXPECT_EQ(result, row.expected) << textOf(result).toUtf8();
    XValue inPlace = row.from;
    EXPECT_EQ(changeType(inPlace, row.to, inPlace), S_OK);
    EXPECT_EQ(inPlace, row.expected);
  }
}

const XValue mismatch = failed(DISP_E_TYPEMISMATCH);
const XValue overflow = failed(DISP_E_OVERFLOW);

TEST(ChangeType, ToText) {
  check({
      {XValue(), VT_BSTR, text(u"")},
      {XValue::ofBool(true), VT_BSTR, text(u"True")},
      {XValue::ofBool(false), VT_BSTR, text(u"False")},
      {rawBool(1), VT_BSTR, text(u"True")},
      {XValue::ofInt(-42), VT_BSTR, text(u"-42")},
      {integer(VT_I1, -128), VT_BSTR, text(u"-128")},
      {integer(VT_UI4, 0xFFFFFFFF), VT_BSTR, text(u"4294967295")},
      {XValue::ofInt64(std::numeric_limits<std::int64_t>::min()), VT_BSTR, text(u"-9223372036854775808")},
      {integer(VT_UI8, -1), VT_BSTR, text(u"18446744073709551615")},
      {single(0.1f), VT_BSTR, text(u"0.1")},
      {real(0.1 + 0.2), VT_BSTR, text(u"0.3")},
      {real(-1234.5), VT_BSTR, text(u"-1234.5")},
      {XValue::ofDate(45413), VT_BSTR, text(u"2024-05-01")},
      {XValue::ofDate(45413.5625), VT_BSTR, text(u"2024-05-01 13:30:00")},
      {XValue::ofDate(1e9), VT_BSTR, overflow},
      {text(u"same"), VT_BSTR, text(u"same")},
      {XValue::null(), VT_BSTR, mismatch},
      {failed(E_FAIL), VT_BSTR, mismatch},
  });
}

TEST(ChangeType, FromText) {
  check({
      {text(u"12"), VT_I4, XValue::ofInt(12)},
      {text(u" -7 "), VT_I4, XValue::ofInt(-7)},
      {text(u"1.5"), VT_I4, XValue::ofInt(2)},
      {text(u"2.5"), VT_I4, XValue::ofInt(2)},
      {text(u"1e3"), VT_I2, integer(VT_I2, 1000)},
      {text(u"2147483648"), VT_I4, overflow},
      {text(u"9007199254740993"), VT_I8, XValue::ofInt64(9007199254740993)},
      {text(u"18446744073709551615"), VT_UI8, integer(VT_UI8, -1)},
      {text(u"18446744073709551616"), VT_UI8, overflow},
      {text(u"-1"), VT_UI4, overflow},
      {text(u"0.25"), VT_R8, real(0.25)},
      {text(u"1e400"), VT_R8, overflow},
      {text(u"1e39"), VT_R4, overflow},
      {text(u""), VT_I4, mismatch},
      {text(u"12px"), VT_I4, mismatch},
      {text(u"True"), VT_I4, mismatch},
      {text(u"tRUE"), VT_BOOL, XValue::ofBool(true)},
      {text(u"FALSE"), VT_BOOL, XValue::ofBool(false)},
      {text(u"0.5"), VT_BOOL, XValue::ofBool(true)},
      {text(u"0"), VT_BOOL, XValue::ofBool(false)},
      {text(u"yes"), VT_BOOL, mismatch},
      {text(u"2024-05-01"), VT_DATE, XValue::ofDate(45413)},
      {text(u"2024-05-01T13:30:00"), VT_DATE, XValue::ofDate(45413.5625)},
      {text(u"45413.5"), VT_DATE, XValue::ofDate(45413.5)},
      {text(u"2024-02-30"), VT_DATE, mismatch},
      {text(u"2958466"), VT_DATE, overflow},
      {text(u"2024-05-01"), VT_R8, mismatch},
      {text(u"5"), VT_ERROR, mismatch},
      {text(u""), VT_EMPTY, mismatch},
  });
}

TEST(ChangeType, BetweenNumbers) {
  check({
      {XValue(), VT_I4, XValue::ofInt(0)},
      {XValue(), VT_R8, real(0)},
      {XValue(), VT_BOOL, XValue::ofBool(false)},
      {XValue(), VT_DATE, XValue::ofDate(0)},
      {XValue::ofInt(3), VT_R8, real(3)},
      {XValue::ofInt(200), VT_I1, overflow},
      {XValue::ofInt(200), VT_UI1, integer(VT_UI1, 200)},
      {XValue::ofInt(-1), VT_UI8, overflow},
      {XValue::ofInt64(1LL << 40), VT_I4, overflow},
      {integer(VT_UI8, -1), VT_I8, overflow},
      {integer(VT_UI8, -1), VT_R8, real(18446744073709551615.0)},
      {integer(VT_UI4, 0xFFFFFFFF), VT_I4, overflow},
      {real(0.5), VT_I4, XValue::ofInt(0)},
      {real(1.5), VT_I4, XValue::ofInt(2)},
      {real(-2.5), VT_I4, XValue::ofInt(-2)},
      {real(2147483647.5), VT_I4, overflow},
      {real(2147483647.4), VT_I4, XValue::ofInt(2147483647)},
      {real(-0.4), VT_UI1, integer(VT_UI1, 0)},
      {real(255.5), VT_UI1, overflow},
      {real(9223372036854775808.0), VT_I8, overflow},
      {real(-9223372036854775808.0), VT_I8, XValue::ofInt64(std::numeric_limits<std::int64_t>::min())},
      {real(9223372036854775808.0), VT_UI8, integer(VT_UI8, std::numeric_limits<std::int64_t>::min())},
      {real(std::nan("")), VT_I4, overflow},
      {real(std::numeric_limits<double>::infinity()), VT_I8, overflow},
      {real(0.1), VT_R4, single(0.1f)},
      {real(1e39), VT_R4, overflow},
      {single(0.5f), VT_R8, real(0.5)},
      {XValue::ofDate(45413.75), VT_R8, real(45413.75)},
      {XValue::ofDate(45413.75), VT_I4, XValue::ofInt(45414)},
      {real(-1.25), VT_DATE, XValue::ofDate(-1.25)},
      {real(1e7), VT_DATE, overflow},
      {real(-657434.5), VT_DATE, XValue::ofDate(-657434.5)},
      {real(-657435), VT_DATE, overflow},
      {real(std::nan("")), VT_DATE, overflow},
  });
}

TEST(ChangeType, LogicalValues) {
  check({
      {XValue::ofBool(true), VT_I4, XValue::ofInt(-1)},
      {XValue::ofBool(true), VT_R8, real(-1)},
      {XValue::ofBool(true), VT_UI1, integer(VT_UI1, 0xFF)},
      {XValue::ofBool(true), VT_UI4, integer(VT_UI4, 0xFFFFFFFF)},
      {rawBool(1), VT_I2, integer(VT_I2, 1)},
      {rawBool(1), VT_BOOL, rawBool(1)},
      {XValue::ofInt(7), VT_BOOL, XValue::ofBool(true)},
      {real(0.1), VT_BOOL, XValue::ofBool(true)},
      {real(-0.0), VT_BOOL, XValue::ofBool(false)},
      {XValue::ofDate(1), VT_BOOL, XValue::ofBool(true)},
  });
}

TEST(ChangeType, WhatDoesNotConvert) {
  std::vector<Row> rows = {
      {XValue(), VT_EMPTY, XValue()},
      {XValue::null(), VT_NULL, XValue::null()},
      {failed(E_FAIL), VT_DISPATCH, mismatch},
  };
  for (const VarType to : {VT_EMPTY, VT_I4, VT_R8, VT_DATE, VT_BOOL, VT_ERROR, VT_DISPATCH, VT_UNKNOWN}) {
    rows.push_back({XValue::null(), to, mismatch});
  }
  for (const VarType to : {VT_EMPTY, VT_NULL, VT_ERROR, VT_DISPATCH, VT_UNKNOWN}) {
    rows.push_back({XValue::ofInt(1), to, mismatch});
  }
  for (const VarType to : {VT_EMPTY, VT_NULL, VT_I4, VT_R4, VT_DATE, VT_BOOL}) {
    rows.push_back({failed(E_FAIL), to, mismatch});
  }
  check(rows);
  XValue error;
  EXPECT_EQ(changeType(failed(E_FAIL), VT_ERROR, error), S_OK);
  EXPECT_EQ(error, failed(E_FAIL));
  EXPECT_TRUE(textOf(XValue::null()).empty());
  EXPECT_EQ(textOf(real(2.5)), u"2.5");
}

}  // namespace
}  // namespace tessera
