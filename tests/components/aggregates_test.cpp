#include "components/data_set_fixture.h"

namespace tessera {
namespace {

using testing::answer;
using testing::storeOf;

using RangeCall = void (DataSetControl::*)(std::int32_t, std::int32_t, std::int32_t, XValue&);

constexpr RangeCall sum = &DataSetControl::SumRange;
constexpr RangeCall greatest = &DataSetControl::MaxRange;
constexpr RangeCall least = &DataSetControl::MinRange;
constexpr RangeCall average = &DataSetControl::AverageRange;

XValue over(DataSetControl& rows, RangeCall call, std::int32_t column, std::int32_t from = 0,
            std::int32_t to = 0) {
  XValue value = XValue::ofText(u"old");
  (rows.*call)(column, from, to, value);
  return value;
}

TEST(Aggregates, OverDataRowsOnly) {
  MemoryDataSet rows(
      storeOf("lv,n,l,d,t\n"
              "0,1,5000000000,0.1,b\n0,,5000000000,0.1,\n0,-4,,0.1,a\n1,99,1,99.5,z\n0,7,,,c\n"),
      {.keepDeleted = true, .level = "lv"});
  struct Case {
    RangeCall call;
    std::int32_t column, from, to;
    XValue expected;
  };
  const Case cases[] = {
      {sum, 2, 1, 3, XValue::ofInt(-3)},
      {sum, 2, 4, 4, XValue()},
      {sum, 2, 2, 2, XValue()},
      {sum, 2, 3, 2, XValue()},
      {sum, 2, -9, 99, XValue::ofInt(4)},
      {sum, 3, 0, 0, XValue::ofInt64(10000000000)},
      {sum, 5, 0, 0, XValue()},
      {sum, 6, 0, 0, XValue()},
      {greatest, 2, 0, 0, XValue::ofInt(7)},
      {greatest, 4, 0, 0, XValue::ofDouble(0.1)},
      {greatest, 5, 0, 0, XValue::ofText(u"c")},
      {least, 2, 0, 0, XValue::ofInt(-4)},
      {least, 5, 0, 0, XValue::ofText(u"a")},
      {least, 2, 2, 2, XValue()},
      {average, 2, 1, 3, XValue::ofDouble(-1.5)},
      {average, 4, 0, 0, XValue::ofDouble(0.1)},
      {average, 5, 0, 0, XValue()},
  };
  for (const Case& c : cases)
    EXPECT_EQ(over(rows, c.call, c.column, c.from, c.to), c.expected) << c.column << c.from << c.to;
  EXPECT_EQ(answer(rows, &DataSetControl::RealCount, 0, 0), 4);
  rows.DeleteRow(5);
  EXPECT_EQ(answer(rows, &DataSetControl::RealCount, 0, 0), 3);
  EXPECT_EQ(over(rows, sum, 2), XValue::ofInt(-3)) << "a kept answer outlived a change";
}

TEST(Aggregates, SumsDoNotWrapAroundOrLoseSmallParts) {
  std::string tenths = "n\n100000000000.0\n";
  for (int i = 0; i < 10000; ++i) tenths += "0.1\n";
  const std::pair<std::string, XValue> cases[] = {
      {"n\n2147483647\n1\n", XValue::ofInt64(2147483648)},
      {"n\n9223372036854775807\n9223372036854775807\n5\n", XValue::ofDouble(18446744073709551616.0)},
      {tenths, XValue::ofDouble(100000001000.0)}};
  for (const auto& [csv, expected] : cases) {
    MemoryDataSet rows(storeOf(csv));
    EXPECT_EQ(over(rows, sum, 1), expected);
  }
}

TEST(Groups, BeginAndEndAtRowsOfTheirLevel) {
  // The levels of the rows from 1 on.
  const std::string levels = "0010120112";
  struct Case {
    std::int32_t row, level, start, end;
  };
  const Case cases[] = {
      {1, 0, 1, 2}, {2, 0, 1, 2}, {3, 1, 1, 2},  {4, 0, 4, 4}, {5, 1, 4, 4},  {6, 2, 1, 4}, {1, 2, 1, 4},
      {3, 2, 1, 4}, {7, 1, 7, 7}, {10, 2, 7, 7}, {9, 1, 9, 8}, {11, 1, 0, 0}, {0, 1, 0, 0},
  };
  std::string csv = "lv\n";
  for (const char level : levels) csv += {level, '\n'};
  MemoryDataSet rows(storeOf(csv), {.subsum = "2:a,1:b", .level = "lv"});
  for (const Case& c : cases) {
    EXPECT_EQ(answer(rows, &DataSetControl::GroupStart, c.row, c.level), c.start) << c.row << " " << c.level;
    EXPECT_EQ(answer(rows, &DataSetControl::GroupEnd, c.row, c.level), c.end) << c.row << " " << c.level;
  }
  MemoryDataSet plain(storeOf("n\n1\n2\n3\n"));
  EXPECT_EQ(answer(plain, &DataSetControl::GroupStart, 2, 0), 1);
  EXPECT_EQ(answer(plain, &DataSetControl::GroupEnd, 2, 0), 3);
}

TEST(Groups, AdjacentRowsSkipSummaries) {
  MemoryDataSet rows(storeOf("lv\n0\n1\n0\n1\n2\n"), {.level = "lv"});
  struct Case {
    std::int32_t row, step, expected;
  };
  const Case cases[] = {{1, 1, 3},  {3, -1, 1}, {3, 1, 0},  {1, -1, 0}, {0, 1, 1},
                        {6, -1, 3}, {2, 1, 3},  {2, -1, 1}, {1, 2, 0},  {9, -1, 0}};
  for (const Case& c : cases)
    EXPECT_EQ(answer(rows, &DataSetControl::AdjacentRow, c.row, c.step), c.expected)
        << c.row << " " << c.step;
}

}  // namespace
}  // namespace tessera
