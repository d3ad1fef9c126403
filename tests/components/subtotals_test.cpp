#include "components/subtotals.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "components/data_set_fixture.h"

namespace tessera {
namespace {

using testing::answer;
using testing::columnTexts;
using testing::NotingSink;
using testing::rowCount;
using testing::storeOf;
using testing::textAt;
using testing::valueAt;
using testing::wide;

constexpr const char* orders =
    "REGION,CITY,N,D\n"
    "N,a,1,0.5\nN,a,2,0.25\nN,b,3,1\nS,b,4,2\nS,c,5,4\nS,c,6,8\n";

constexpr const char* groups = "2:REGION,1:CITY";

std::string levels(MemoryDataSet& rows) {
  std::string all;
  for (std::int32_t row = 1; row <= rowCount(rows); ++row)
    all += std::to_string(answer(rows, &DataSetControl::GetLevel, row));
  return all;
}

TEST(Subsum, Texts) {
  const ColumnStore store = storeOf(orders);
  const std::pair<const char16_t*, std::vector<GroupKey>> cases[] = {
      {u"2:REGION,1:CITY", {{2, 0}, {1, 1}}},
      {u" 2 : REGION ,\t1: CITY ", {{2, 0}, {1, 1}}},
      {u"1:nope", {{1, -1}}},
      {u"", {}},
      {u"REGION", {}},
      {u"2:REGION,CITY", {}},
      {u"0:REGION", {}},
      {u"x:REGION", {}},
  };
  for (const auto& [text, keys] : cases) EXPECT_EQ(parseSubsum(text, store), keys);
}

TEST(Subtotals, StandBehindTheirRowsInnerBeforeOuter) {
  MemoryDataSet rows(storeOf(orders), {.subsum = groups});
  EXPECT_EQ(levels(rows),
            "00101201001"
            "2");
  EXPECT_EQ(columnTexts(rows, 2), "a a =a b =b = b =b c c =c =");
  EXPECT_EQ(columnTexts(rows, 1), "N N =N N =N =N S =S S S =S =S");
  EXPECT_EQ(columnTexts(rows, 3), "1 2 =3 3 =3 =6 4 =4 5 6 =11 =15");
  EXPECT_EQ(columnTexts(rows, 4), "0.50 0.25 =0.75 1.00 =1.00 =1.75 2.00 =2.00 4.00 8.00 =12.00 =14.00");
  EXPECT_EQ(valueAt(rows, 12, 3), XValue::ofInt(15));
  EXPECT_EQ(valueAt(rows, 12, 4), XValue::ofDouble(14));
  EXPECT_EQ(valueAt(rows, 12, 2), XValue::ofText(u""));
}

TEST(Subtotals, NoneForTextsThatAreNoGroups) {
  for (const char* const subsum : {"", "REGION", "1:nope", "2:REGION,1:nope"}) {
    MemoryDataSet rows(storeOf(orders), {.subsum = subsum});
    EXPECT_EQ(levels(rows), "000000") << subsum;
  }
  MemoryDataSet empty(storeOf("REGION,CITY\n"), {.subsum = groups});
  EXPECT_EQ(rowCount(empty), 0);
}

TEST(Subtotals, FollowWritesAndDeletionsAtOnce) {
  MemoryDataSet rows(storeOf(orders), {.keepDeleted = true, .subsum = groups});
  EXPECT_EQ(columnTexts(rows, 3), "1 2 =3 3 =3 =6 4 =4 5 6 =11 =15");
  rows.SetValue(2, 3, XValue::ofInt(20));
  EXPECT_EQ(columnTexts(rows, 3), "1 20 =21 3 =3 =24 4 =4 5 6 =11 =15");
  rows.DeleteRow(1);
  EXPECT_EQ(columnTexts(rows, 3), "1 20 =20 3 =3 =23 4 =4 5 6 =11 =15");
  rows.SetValue(9, 3, XValue());
  EXPECT_EQ(columnTexts(rows, 3), "1 20 =20 3 =3 =23 4 =4  6 =6 =10");
}

TEST(Subtotals, AreNotWrittenOrDeleted) {
  MemoryDataSet rows(storeOf(orders), {.subsum = groups});
  NotingSink sink(rows);
  rows.SetValue(3, 3, XValue::ofInt(99));
  rows.DeleteRow(3);
  EXPECT_EQ(sink.taken(), "");
  EXPECT_EQ(levels(rows), "001012010012");
}

TEST(Subtotals, GroupRowsGoWithTheirLastRow) {
  MemoryDataSet rows(storeOf(orders), {.subsum = groups});
  rows.SetCurrentRow(9);
  NotingSink sink(rows);
  rows.DeleteRow(4);
  EXPECT_EQ(columnTexts(rows, 2), "a a =a = b =b c c =c =");
  EXPECT_EQ(sink.taken(), "RowDeleted(5) RowDeleted(4) RowsReset CurrentRowChanged(7)");
  // One after the other at one number, as rows close up.
  rows.DeleteRow(1);
  rows.DeleteRow(1);
  EXPECT_EQ(columnTexts(rows, 2), "b =b c c =c =");
  rows.DeleteRow(3);
  rows.DeleteRow(3);
  EXPECT_EQ(columnTexts(rows, 1), "S =S =S");
  EXPECT_EQ(columnTexts(rows, 3), "4 =4 =4");
  rows.DeleteRow(1);
  EXPECT_EQ(rowCount(rows), 0);
}

// A new branch: one row goes in, its keys are written, and the commit makes the subtotal rows.
TEST(Subtotals, CommitSettlesNewGroups) {
  MemoryDataSet rows(storeOf(orders), {.subsum = groups});
  ASSERT_EQ(rows.InsertRow(4), 4);
  rows.SetTextByName(4, wide("REGION"), wide("N"));
  rows.SetTextByName(4, wide("CITY"), wide("New"));
  rows.SetTextByName(4, wide("N"), wide("40"));
  EXPECT_EQ(rowCount(rows), 13);
  NotingSink sink(rows);
  rows.CommitRows();
  EXPECT_EQ(sink.taken(), "RowsReset");
  EXPECT_EQ(columnTexts(rows, 2), "a a =a New =New b =b = b =b c c =c =");
  EXPECT_EQ(columnTexts(rows, 3), "1 2 =3 40 =40 3 =3 =46 4 =4 5 6 =11 =15");
  EXPECT_EQ(answer(rows, &DataSetControl::GetCurrentRow), 4);
}

TEST(Subtotals, UncommittedRowsAtTheEndAndAlone) {
  MemoryDataSet rows(storeOf("k,n\na,1\n"), {.subsum = "1:k"});
  EXPECT_EQ(rows.InsertRow(99), 3);
  rows.SetText(3, 2, wide("5"));
  EXPECT_EQ(columnTexts(rows, 2), "1 =1 5");
  rows.DeleteRow(3);
  EXPECT_EQ(rows.InsertRow(1), 1);
  rows.DeleteRow(2);
  EXPECT_EQ(columnTexts(rows, 1), " =") << "the group's key follows the row that is left";
  rows.DeleteRow(1);
  EXPECT_EQ(rowCount(rows), 0);
}

TEST(Subtotals, SortKeepsGroupsWhole) {
  struct Case {
    const char *sort, *numbers;
  };
  const Case cases[] = {
      {"-N", "2 1 =3 3 =3 =6 4 =4 6 5 =11 =15"},
      {"-REGION", "4 =4 5 6 =11 =15 1 2 =3 3 =3 =6"},
      {"-CITY,-N", "3 =3 2 1 =3 =6 6 5 =11 4 =4 =15"},
  };
  for (const Case& c : cases) {
    MemoryDataSet rows(storeOf(orders), {.sort = c.sort, .subsum = groups});
    EXPECT_EQ(columnTexts(rows, 3), c.numbers) << c.sort;
  }
}

TEST(Subtotals, CurrentSubtotalRowStaysCurrentThroughACommit) {
  MemoryDataSet rows(storeOf(orders), {.subsum = groups});
  rows.SetCurrentRow(6);
  rows.InsertRow(1);
  rows.SetTextByName(1, wide("REGION"), wide("A"));
  rows.SetCurrentRow(7);
  rows.CommitRows();
  EXPECT_EQ(textAt(rows, answer(rows, &DataSetControl::GetCurrentRow), 3), "6");
}

TEST(Subtotals, TextChangedLater) {
  MemoryDataSet rows(storeOf(orders), {.subsum = groups});
  rows.setSubsumExpr("7:REGION");
  EXPECT_EQ(levels(rows), "00070007");
  rows.setSubsumExpr("");
  EXPECT_EQ(levels(rows), "000000");
}

// Whatever was done to the rows, the sums shown are those of the rows above.
TEST(Subtotals, AgreeWithSumsMadeByHandOverRandomHistories) {
  std::mt19937 random(5);
  const auto pick = [&](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
  MemoryDataSet rows(storeOf(orders), {.keepDeleted = true, .subsum = groups});
  for (int step = 0; step < 4000; ++step) {
    const std::int32_t row = pick(rowCount(rows) + 1) + 1;
    const int kind = pick(20);
    if (kind < 3)
      rows.InsertRow(row);
    else if (kind < 6)
      rows.DeleteRow(row);
    else if (kind < 7)
      rows.CommitRows();
    else if (kind < 8 && pick(6) == 0)
      rows.acceptChanges();
    else if (kind < 12)
      rows.SetText(row, pick(2) + 1, wide(std::string(1, static_cast<char>('a' + pick(3)))));
    else
      rows.SetValue(row, 3, XValue::ofInt(pick(100)));

    std::int64_t inner = 0;
    std::int64_t outer = 0;
    for (std::int32_t r = 1; r <= rowCount(rows); ++r) {
      const auto level = answer(rows, &DataSetControl::GetLevel, r);
      if (level == 0) {
        const bool counts = answer(rows, &DataSetControl::GetStatus, r) != rowDeleted;
        const std::int64_t n = counts ? valueAt(rows, r, 3).asInt64() : 0;
        inner += n;
        outer += n;
        continue;
      }
      ASSERT_EQ(valueAt(rows, r, 3).asInt64(), level == 1 ? inner : outer) << step << " row " << r;
      XValue sum;
      const auto from = answer(rows, &DataSetControl::GroupStart, r, level);
      const auto to = answer(rows, &DataSetControl::GroupEnd, r, level);
      rows.SumRange(3, from, to, sum);
      ASSERT_EQ(sum.asInt64(), level == 1 ? inner : outer) << step << " row " << r;
      inner = 0;
      if (level == 2) outer = 0;
    }
  }
}

}  // namespace
}  // namespace tessera
