#include <cmath>
#include <gtest/gtest.h>

#include <tessera/xvalue.h>

#include "shared/change_type.h"
#include "shared/counted_memory.h"

namespace tessera {
namespace {

TEST(XValue, IntegersAreCutToTheirWidth) {
  struct Row {
    VarType type;
    std::int64_t stored, expected;
  };
  constexpr Row rows[] = {{VT_I1, 0x1FF, -1},
                          {VT_UI1, -1, 0xFF},
                          {VT_I2, 0x18000, -0x8000},
                          {VT_UI2, -1, 0xFFFF},
                          {VT_I4, 0x80000000, -0x80000000LL},
                          {VT_UI4, -1, 0xFFFFFFFF},
                          {VT_BOOL, 0x1FFFF, -1},
                          {VT_I8, -5, -5},
                          {VT_UI8, -5, -5}};
  for (const Row& row : rows) {
    XValue value;
    value.setInteger(row.type, row.stored);
    EXPECT_EQ(value.type(), row.type);
    EXPECT_EQ(value.asInt64(), row.expected) << row.type;
  }
}

TEST(XValue, AWarmValueDoesNotAllocate) {
  XValue value = XValue::ofText(u"a text of some length");
  const std::int64_t before = test::allocationCount();
  for (int i = 0; i < 10; ++i) {
    value.setInt(i);
    value.setText(u"short");
    value.setDouble(0.5);
    value.setNarrow("also short");
    changeType(XValue::ofInt(-123456), VT_BSTR, value);
    changeType(XValue::ofDouble(0.1), VT_BSTR, value);
    value.textBuffer().assignNarrow("from a file");
    value.becomeText();
  }
  EXPECT_EQ(test::allocationCount(), before);
  EXPECT_EQ(value.asText(), u"from a file");
}

TEST(XValue, CopiesShareTheTextAndEqualOnlyTheirOwnType) {
  const XString text(u"text");
  XValue first, second;
  first.setText(text);
  second = first;
  XValue third(second);
  EXPECT_EQ(text.refs(), 4);
  second.setText(u"else");
  EXPECT_EQ(text, u"text");
  first.setInt(1);
  third = first;
  EXPECT_EQ(text.refs(), 1) << "a value that is no text holds nobody else's text";
  EXPECT_EQ(third.asInt(), 1);
  EXPECT_EQ(third.asText(), u"");
  EXPECT_FALSE(XValue() == XValue::null());
  EXPECT_FALSE(XValue::ofInt(1) == XValue::ofInt64(1));
  EXPECT_EQ(XValue::ofDouble(0.0), XValue::ofDouble(-0.0));
  EXPECT_FALSE(XValue::ofDouble(std::nan("")) == XValue::ofDouble(std::nan("")));
}

TEST(XValue, MovesLeaveAnEmptyValue) {
  XValue from = XValue::ofText(u"text");
  const char16_t* block = from.asText().chars();
  XValue to(std::move(from));
  EXPECT_EQ(from.type(), VT_EMPTY);  // NOLINT(bugprone-use-after-move): what is left is part of the contract
  XValue last = XValue::ofInt(3);
  last = std::move(to);
  EXPECT_EQ(to.type(), VT_EMPTY);  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(last.asText().chars(), block);
  last = XValue::ofDouble(2.5);
  EXPECT_EQ(last.asDouble(), 2.5);
}

TEST(XValue, RunningOutOfMemoryIsAnErrorValue) {
  XValue assigned, narrow, copied;
  XValue writing = XValue::ofText(u"being written");
  writing.textBuffer().reserve(40);
  {
    const test::NoMemory noMemory;
    assigned.setText(u"text");
    narrow.setNarrow("text");
    copied = writing;
  }
  EXPECT_EQ(assigned, XValue::ofError(hresult(0x8007000E)));
  EXPECT_EQ(narrow, XValue::ofError(hresult(0x8007000E)));
  EXPECT_EQ(copied, XValue::ofError(hresult(0x8007000E)));
}

}  // namespace
}  // namespace tessera
