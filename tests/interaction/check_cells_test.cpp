#include "interaction/check_cells.h"

#include <gtest/gtest.h>

namespace tessera {
namespace {

TEST(CheckCells, WhatAMarkMakesOfAValue) {
  const auto text = [](const char16_t* value) { return XValue::ofText(value); };
  XValue real;
  real.setFloat(0.5);
  struct Row {
    XValue value, byMouse, byKey, radio;
    bool isSet;
  };
  const Row table[] = {
      {text(u"T"), text(u"F"), text(u"F"), text(u"T"), true},
      {text(u"True"), text(u"F"), text(u"F"), text(u"T"), true},
      {text(u"F"), text(u"T"), text(u"T"), text(u"T"), false},
      {text(u"False"), text(u"T"), text(u"T"), text(u"T"), true},
      {text(u"0"), text(u"F"), text(u"T"), text(u"T"), false},
      {text(u""), text(u"F"), text(u"T"), text(u"T"), true},
      {text(u"f"), text(u"F"), text(u"T"), text(u"T"), false},
      {text(u"x"), text(u"F"), text(u"T"), text(u"T"), true},
      {XValue::ofInt(0), XValue::ofInt(1), XValue::ofInt(1), XValue::ofInt(1), false},
      {XValue::ofInt(-3), XValue::ofInt(0), XValue::ofInt(0), XValue::ofInt(1), true},
      {XValue::ofInt64(0), XValue::ofInt(1), XValue::ofInt(1), XValue::ofInt(1), false},
      {XValue::ofInt64(std::int64_t{1} << 40), XValue::ofInt(0), XValue::ofInt(0), XValue::ofInt(1), true},
      {XValue::ofDouble(0), XValue::ofDouble(1), XValue::ofDouble(1), XValue::ofDouble(1), false},
      {real, XValue::ofDouble(0), XValue::ofDouble(0), XValue::ofDouble(1), true},
      {XValue::ofBool(true), XValue::ofBool(true), XValue::ofBool(true), XValue::ofBool(true), false},
      {XValue(), XValue(), XValue(), XValue(), false},
      {XValue::null(), XValue::null(), XValue::null(), XValue::null(), false},
  };
  for (std::size_t row = 0; row < std::size(table); ++row) {
    EXPECT_EQ(checkedByMouse(table[row].value), table[row].byMouse) << row;
    EXPECT_EQ(checkedByKey(table[row].value), table[row].byKey) << row;
    EXPECT_EQ(radioSetValue(table[row].value), table[row].radio) << row;
    EXPECT_EQ(isRadioSet(table[row].value), table[row].isSet) << row;
  }
}

}  // namespace
}  // namespace tessera
