#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "components/data_set_fixture.h"

namespace tessera {
namespace {

using testing::columnTexts;
using testing::NotingSink;
using testing::rowCount;
using testing::storeOf;
using testing::textAt;
using testing::wide;

void sortBy(MemoryDataSet& rows, std::string_view text) {
  rows.SetSortExpr(wide(text));
  rows.ApplySort();
}

std::int32_t find(MemoryDataSet& rows, std::string_view column, std::string_view text) {
  std::int32_t row = -77;
  rows.FindRow(wide(column), wide(text), row);
  return row;
}

struct SortCase {
  const char* sort;
  const char* ids;
};

TEST(Sort, StableByEveryKeyInTurn) {
  const char* const csv =
      "id,city,n,d\n"
      "1,Bonn,5,1.5\n2,Aachen,-5,-2.5\n3,Bonn,,0.0\n4,,5,\n5,Aachen,7,1.5\n6,Bonn-Mitte,5,-0.5\n"
      "7,Bonn-Mitte-West,5000000000,2\n8,\xC3\x84gypten,5,2\n";
  const SortCase cases[] = {
      {"+city", "4 2 5 1 3 6 7 8"},    {"-city", "8 7 6 1 3 2 5 4"},
      {"city", "4 2 5 1 3 6 7 8"},     {" - city , + n ", "8 7 6 3 1 2 5 4"},
      {"+n", "3 2 1 4 6 8 5 7"},       {"-n", "7 5 1 4 6 8 2 3"},
      {"+d,-id", "4 2 6 3 5 1 8 7"},   {"-d,+city,-n", "7 8 5 1 3 6 2 4"},
      {"+n,-city", "3 2 8 6 1 4 5 7"},
  };
  for (const SortCase& c : cases) {
    MemoryDataSet rows(storeOf(csv));
    sortBy(rows, c.sort);
    EXPECT_EQ(columnTexts(rows, 1), c.ids) << c.sort;
    sortBy(rows, "");
    EXPECT_EQ(columnTexts(rows, 1), "1 2 3 4 5 6 7 8");
  }
}

// The sort by pieces of cells against a stable sort that compares whole cells.
TEST(Sort, AgreesWithAStableSortOfWholeCells) {
  std::mt19937 random(3);
  const auto pick = [&](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
  std::string csv = "id,t,l,d\n";
  for (int row = 0; row < 3000; ++row) {
    std::string text;
    for (int length = pick(23); length > 0; --length)
      text += pick(12) == 0 ? "\xC3\xBF" : pick(9) == 0 ? "b" : "a";
    const char* const longs[] = {"",
                                 "-9223372036854775808",
                                 "-9223372036854775807",
                                 "9223372036854775807",
                                 "0",
                                 "-1",
                                 "4294967296",
                                 "4294967295"};
    const std::string decimal = pick(9) == 0 ? "" : std::to_string(pick(7) - 3) + ".5";
    csv += std::to_string(row) + "," + text + "," + longs[pick(8)] + "," + decimal + "\n";
  }
  for (const char* const sort : {"+t", "-t", "+l,-t", "-l,+d", "+d,-l,+t"}) {
    MemoryDataSet rows(storeOf(csv));
    const ColumnStore& store = rows.store();
    const auto keys = parseSortKeys(wide(sort).view(), store);
    std::vector<std::int32_t> expected(static_cast<std::size_t>(store.recordCount()));
    std::iota(expected.begin(), expected.end(), 0);
    std::stable_sort(expected.begin(), expected.end(), [&](std::int32_t a, std::int32_t b) {
      for (const SortKey& key : *keys) {
        const std::int32_t order = store.column(key.column).compare(a, b);
        if (order != 0) return (order < 0) != key.descending;
      }
      return false;
    });
    sortBy(rows, sort);
    for (std::int32_t row = 1; row <= rowCount(rows); ++row)
      ASSERT_EQ(rows.entryAt(row), expected[static_cast<std::size_t>(row) - 1]) << sort << " row " << row;
  }
}

TEST(Sort, NamesWithCommasSignsAndBlanks) {
  const SortCase cases[] = {
      {"+a,b", "2 3 1"}, {"-a,b,+id", "1 3 2"}, {"+c,-a,b", "1 3 2"},
      {"++x", "1 3 2"},  {"- sp", "2 1 3"},     {"+c , - id", "3 1 2"},
  };
  for (const SortCase& c : cases) {
    MemoryDataSet rows(storeOf("id,\"a,b\",+x, sp,c\n1,9,1,5,0\n2,7,3,6,4\n3,8,2,4,0\n"));
    sortBy(rows, c.sort);
    EXPECT_EQ(columnTexts(rows, 1), c.ids) << c.sort;
  }
}

TEST(Sort, UnknownColumnChangesNothing) {
  for (const char* const sort : {"+nope", "+id,-nope", "+", "+id,,-n", ","}) {
    MemoryDataSet rows(storeOf("id,n\n2,1\n1,2\n"));
    NotingSink sink(rows);
    sortBy(rows, sort);
    EXPECT_EQ(columnTexts(rows, 1), "2 1") << sort;
    EXPECT_EQ(sink.taken(), "") << sort;
  }
}

TEST(Sort, KeepsTheCurrentRecordCurrent) {
  MemoryDataSet rows(storeOf("id\n3\n1\n2\n"));
  rows.SetCurrentRow(1);
  NotingSink sink(rows);
  sortBy(rows, "+id");
  EXPECT_EQ(testing::answer(rows, &DataSetControl::GetCurrentRow), 3);
  EXPECT_EQ(sink.taken(), "RowsReset CurrentRowChanged(3)");
  sortBy(rows, "+id");
  EXPECT_EQ(sink.taken(), "RowsReset");
}

TEST(Sort, CarriesStatusAndSelectionAlong) {
  MemoryDataSet rows(storeOf("id\n3\n1\n2\n"));
  rows.SetRowSelected(1, 1);
  rows.SetValue(2, 1, XValue::ofInt(9));
  sortBy(rows, "+id");
  EXPECT_EQ(columnTexts(rows, 1), "2 3 9");
  EXPECT_EQ(testing::answer(rows, &DataSetControl::GetRowSelected, 2), 1);
  EXPECT_EQ(testing::answer(rows, &DataSetControl::GetRowSelected, 1), 0);
  EXPECT_EQ(testing::answer(rows, &DataSetControl::GetStatus, 3), rowUpdated);
}

TEST(Sort, SummaryRowsOfTheFileStayInPlace) {
  MemoryDataSet rows(storeOf("lv,n\n0,3\n0,1\n1,4\n0,9\n0,8\n1,17\n2,21\n"), {.level = "lv"});
  sortBy(rows, "+n");
  EXPECT_EQ(columnTexts(rows, 2), "1 3 =4 8 9 =17 =21");
}

TEST(FindRow, TextsAsTheyAreShown) {
  MemoryDataSet rows(storeOf("t,n,d\nx,1,1.50\ny,,2.25\nx,1,1.5\n,7,\n"));
  struct Case {
    const char *column, *text;
    std::int32_t row;
  };
  const Case cases[] = {{"t", "x", 1},    {"t", "y", 2}, {"t", "z", 0},    {"t", "", 4},
                        {"n", "7", 4},    {"n", "", 2},  {"d", "1.50", 1}, {"d", "1.5", 0},
                        {"nope", "x", 0}, {"t", "X", 0}, {"T", "y", 2}};
  for (const Case& c : cases) EXPECT_EQ(find(rows, c.column, c.text), c.row) << c.column << " " << c.text;
}

// Names that differ in case only are two columns; a third spelling means the first of them.
TEST(Columns, AreFoundInAnyCase) {
  MemoryDataSet rows(storeOf("t,n,T\nx,1,y\n"));
  for (const auto& [name, text] : {std::pair("t", "x"), {"T", "y"}, {"N", "1"}}) {
    XString found;
    rows.GetTextByName(1, wide(name), found);
    EXPECT_EQ(found.toUtf8(), text) << name;
  }
}

TEST(FindRow, FollowsEveryChange) {
  MemoryDataSet rows(storeOf("t\na\nb\na\nc\n"));
  EXPECT_EQ(find(rows, "t", "a"), 1);
  rows.SetText(1, 1, wide("z"));
  EXPECT_EQ(find(rows, "t", "a"), 3);
  EXPECT_EQ(find(rows, "t", "z"), 1);
  rows.SetText(2, 1, wide("a"));
  EXPECT_EQ(find(rows, "t", "a"), 2);
  EXPECT_EQ(find(rows, "t", "b"), 0);
  rows.InsertRow(1);
  EXPECT_EQ(find(rows, "t", "a"), 3);
  EXPECT_EQ(find(rows, "t", ""), 1);
  rows.DeleteRow(3);
  EXPECT_EQ(find(rows, "t", "a"), 3);
  sortBy(rows, "-t");
  EXPECT_EQ(find(rows, "t", "a"), 3);
  rows.InsertRow(99);
  EXPECT_EQ(find(rows, "t", ""), 4);
  rows.SetText(5, 1, wide("new"));
  EXPECT_EQ(find(rows, "t", "new"), 5);
}

// The index against a plain search, over long random histories.
TEST(FindRow, AgreesWithAPlainSearch) {
  std::mt19937 random(7);
  const auto pick = [&](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
  for (const int distinct : {3, 40, 4000}) {
    MemoryDataSet rows(storeOf("t\n0\n"));
    for (int step = 0; step < 6000; ++step) {
      const std::int32_t row = pick(rowCount(rows)) + 1;
      const int kind = pick(100);
      if (kind < 5)
        rows.InsertRow(row);
      else if (kind < 10)
        rows.InsertRow(rowCount(rows) + 1);
      else if (kind < 14 && rowCount(rows) > 1)
        rows.DeleteRow(row);
      else if (kind < 15)
        sortBy(rows, pick(2) ? "+t" : "-t");
      else if (kind < 70)
        rows.SetText(row, 1, wide(std::to_string(pick(distinct))));
      const std::string wanted = std::to_string(pick(distinct));
      std::int32_t expected = 0;
      for (std::int32_t r = rowCount(rows); r > 0; --r)
        if (textAt(rows, r, 1) == wanted) expected = r;
      ASSERT_EQ(find(rows, "t", wanted), expected) << distinct << " step " << step;
    }
  }
}

}  // namespace
}  // namespace tessera
