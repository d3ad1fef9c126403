#include "config/format_value.h"

#include <clocale>
#include <gtest/gtest.h>
#include <limits>

#include "fake_info_services.h"
#include "shared/counted_memory.h"

namespace tessera {
namespace {

TEST(FormatValue, TextOfValues) {
  XValue single, small;
  single.setFloat(0.25F);
  small.setInteger(VT_I2, 5);
  const struct {
    XValue value;
    std::int32_t decimals;
    const char* expected;
  } rows[] = {{XValue::ofInt(std::numeric_limits<std::int32_t>::min()), 3, "-2147483648"},
              {XValue::ofInt64(std::numeric_limits<std::int64_t>::max()), 2, "9223372036854775807"},
              {XValue::ofDouble(1.5), 0, "2"},
              {XValue::ofDouble(2.5), 0, "2"},
              {XValue::ofDouble(1.5), 3, "1.500"},
              {XValue::ofDouble(-0.004), 2, "-0.00"},
              {XValue::ofDouble(1e21), 0, "1000000000000000000000"},
              {XValue::ofDouble(0.1), 20, "0.10000000000000000555"},
              {XValue::ofDouble(1.5), -1, "1.500000"},
              {single, 2, "0.25"},
              {XValue::ofText(u"as it is "), 2, "as it is "}};
  for (const XValue& value : {XValue::ofBool(true), XValue::ofDate(45000), XValue(), XValue::null(),
                              XValue::ofError(E_FAIL), small}) {
    XString text = u"before";
    valueText(value, 0, text);
    EXPECT_TRUE(text.empty()) << value.type();
  }
  for (const auto& row : rows) {
    XString text = u"before";
    valueText(row.value, row.decimals, text);
    EXPECT_EQ(text.toUtf8(), row.expected);
  }
}

TEST(FormatValue, TheWidestNumbersFit) {
  XString text;
  valueText(XValue::ofDouble(-std::numeric_limits<double>::max()), 2'000'000'000, text);
  EXPECT_GT(text.length(), 309);
  EXPECT_EQ(text.left(4).toUtf8(), "-179");
  valueText(XValue::ofDouble(std::numeric_limits<double>::denorm_min()), 2'000'000'000, text);
  EXPECT_EQ(text.view().find_last_not_of(u'0'), 1075u);  // the digits of 2^-1074, all of them
}

TEST(FormatValue, FormatsOfTheStyle) {
  EvalState state;
  CellStyle style;
  style.decimals = 2;
  EXPECT_EQ(formatValue(style, XValue::ofDouble(1234567.891), state).toUtf8(), "1234567.89");
  style.displayFormat = u"#,###.00";
  EXPECT_EQ(formatValue(style, XValue::ofDouble(1234567.891), state).toUtf8(), "1,234,567.89");
  EXPECT_EQ(formatValue(style, XValue::ofDate(45000), state).toUtf8(), "");
  const FakeProgram mask(XValue::ofText(u"XX:XX"));
  style.setDynamic(DynamicSlot::DisplayFormat, &mask);
  EXPECT_EQ(formatValue(style, XValue::ofText(u"1234"), state).toUtf8(), "12:34");
  const FakeProgram plain(XValue::ofInt(1));
  style.setDynamic(DynamicSlot::DisplayFormat, &plain);
  EXPECT_EQ(formatValue(style, XValue::ofText(u"1234"), state).toUtf8(), "1234");
  const FakeProgram failing;
  style.setDynamic(DynamicSlot::DisplayFormat, &failing);
  EXPECT_EQ(formatValue(style, XValue::ofText(u"1234"), state).toUtf8(), "1,234.00");
}

template <class Cell>
class CaptionCell : public testing::Test {};
using CaptionCells = testing::Types<HeaderCell, SummaryCell, GroupCell>;
TYPED_TEST_SUITE(CaptionCell, CaptionCells);

TYPED_TEST(CaptionCell, ShowsItsTextOrItsExpression) {
  const RowProgram row;
  const FakeProgram failing;
  TypeParam cell;
  const auto shown = [&cell] {
    EvalState state;
    state.ExprRow = 1234;
    XString text;
    displayText(cell, state, text);
    return text.toUtf8();
  };
  cell.text = u"5678";
  cell.displayFormat = u"#,##0";
  EXPECT_EQ(shown(), "5,678");
  cell.setDynamic(DynamicSlot::Text, &row);
  EXPECT_EQ(shown(), "1,234");
  cell.setDynamic(DynamicSlot::Text, &failing);
  EXPECT_EQ(shown(), "5,678");
}

TEST(FormatValue, TheRawTextOfAGroupKnowsNoExpression) {
  GroupCell group;
  EXPECT_EQ(group.rawText().toUtf8(), "bind");
  const FakeProgram program(XValue::ofText(u"inherit"));
  group.setDynamic(DynamicSlot::Text, &program);
  EXPECT_TRUE(group.rawText().empty());
}

TEST(FormatValue, WarmTextsAllocateNothing) {
  EvalState state;
  CellStyle style;
  style.displayFormat = u"$ #,###.00 won";
  style.decimals = 2;
  const XValue values[] = {XValue::ofDouble(1234567.891), XValue::ofText(u"20240501"), XValue::ofInt(7),
                           XValue()};
  XString text;
  for (const XValue& value : values) formatValue(style, value, state, text);
  const char16_t* storage = text.chars();
  const std::int64_t before = test::allocationCount();
  for (int i = 0; i < 100; ++i) {
    for (const XValue& value : values) formatValue(style, value, state, text);
  }
  EXPECT_EQ(test::allocationCount(), before);
  EXPECT_EQ(text.chars(), storage);
}

TEST(FormatValue, TheDecimalPointIsAPoint) {
  // Wherever a locale with a comma is installed, it must not count.
  const bool set = std::setlocale(LC_NUMERIC, "de_DE.UTF-8") != nullptr;
  XString text;
  valueText(XValue::ofDouble(1.5), 1, text);
  std::setlocale(LC_NUMERIC, "C");
  EXPECT_EQ(text.toUtf8(), "1.5") << (set ? "under a comma locale" : "under the C locale");
}

}  // namespace
}  // namespace tessera
