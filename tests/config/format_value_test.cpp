#include "config/format_value.h"

#include <clocale>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <new>

#include "fake_info_services.h"

namespace {
std::size_t allocations = 0;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  ++allocations;
  return std::malloc(size > 0 ? size : 1);
}
void* operator new(std::size_t size) {
  if (void* memory = operator new(size, std::nothrow)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace tessera {
namespace {

XValue floatValue(float value) {
  XValue result;
  result.setFloat(value);
  return result;
}

XValue shortValue(VarType type) {
  XValue result;
  result.setInteger(type, 5);
  return result;
}

TEST(FormatValue, TextOfValues) {
  const struct {
    XValue value;
    std::int32_t decimals;
    const char* expected;
  } rows[] = {
      {XValue::ofInt(-42), 3, "-42"},
      {XValue::ofInt(std::numeric_limits<std::int32_t>::min()), 0, "-2147483648"},
      {XValue::ofInt64(std::numeric_limits<std::int64_t>::max()), 2, "9223372036854775807"},
      {XValue::ofDouble(1.5), 0, "2"},
      {XValue::ofDouble(2.5), 0, "2"},
      {XValue::ofDouble(1.5), 3, "1.500"},
      {XValue::ofDouble(-0.004), 2, "-0.00"},
      {XValue::ofDouble(1e21), 0, "1000000000000000000000"},
      {XValue::ofDouble(0.1), 20, "0.10000000000000000555"},
      {XValue::ofDouble(1.5), -1, "1.500000"},
      {floatValue(0.25F), 2, "0.25"},
      {XValue::ofText(u"as it is "), 2, "as it is "},
      {XValue::ofBool(true), 0, ""},
      {XValue::ofDate(45000), 0, ""},
      {XValue(), 0, ""},
      {XValue::null(), 0, ""},
      {XValue::ofError(E_FAIL), 0, ""},
      {shortValue(VT_I2), 0, ""},
      {shortValue(VT_UI4), 0, ""},
  };
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
std::string shown(const Cell& cell) {
  EvalState state;
  state.ExprRow = 1234;
  XString text;
  displayText(cell, state, text);
  return text.toUtf8();
}

template <class Cell>
void expectDisplayTexts() {
  const RowProgram row;
  const FakeProgram failing;
  Cell cell;
  cell.text = u"5678";
  EXPECT_EQ(shown(cell), "5678");
  cell.displayFormat = u"#,##0";
  EXPECT_EQ(shown(cell), "5,678");
  cell.setDynamic(DynamicSlot::Text, &row);
  EXPECT_EQ(shown(cell), "1,234");
  cell.setDynamic(DynamicSlot::Text, &failing);
  EXPECT_EQ(shown(cell), "5,678");
}

TEST(FormatValue, DisplayTexts) {
  expectDisplayTexts<HeaderCell>();
  expectDisplayTexts<SummaryCell>();
  expectDisplayTexts<GroupCell>();
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
  const std::size_t before = allocations;
  for (int i = 0; i < 100; ++i) {
    for (const XValue& value : values) formatValue(style, value, state, text);
  }
  EXPECT_EQ(allocations, before);
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
