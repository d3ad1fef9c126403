#include <gtest/gtest.h>
#include <limits>
#include <map>
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

// The statuses of all rows: "0 3 1".
std::string statuses(MemoryDataSet& rows) {
  std::string all;
  for (std::int32_t row = 1; row <= rowCount(rows); ++row) {
    const auto status = answer(rows, &DataSetControl::GetStatus, row);
    EXPECT_EQ(answer(rows, &DataSetControl::GetSysStatus, row), status);
    all += (row > 1 ? " " : "") + std::to_string(status);
  }
  return all;
}

struct WriteCase {
  std::int32_t column;  // 1 integer, 2 long, 3 decimal of scale 2, 4 text
  XValue value;
  const char* text;  // what the cell shows then; null: the write is refused
};

TEST(SetValue, ConvertsOrLeavesTheCellAlone) {
  const WriteCase cases[] = {
      {1, XValue::ofText(u"12"), "12"},
      {1, XValue::ofText(u"x"), nullptr},
      {1, XValue::ofText(u"12x"), nullptr},
      {1, XValue::ofText(u""), ""},
      {1, XValue::ofInt64(3000000000), nullptr},
      {1, XValue::ofDouble(7.5), "8"},
      {1, XValue::null(), ""},
      {2, XValue::ofInt64(3000000000), "3000000000"},
      {2, XValue::ofText(u"-9"), "-9"},
      {3, XValue::ofText(u"1.239"), "1.24"},
      {3, XValue::ofText(u"one"), nullptr},
      {3, XValue::ofInt(-4), "-4.00"},
      {3, XValue::ofDouble(-0.001), "0.00"},
      {3, XValue::ofDouble(std::numeric_limits<double>::infinity()), nullptr},
      {3, XValue::ofDouble(std::numeric_limits<double>::quiet_NaN()), nullptr},
      {3, XValue(), ""},
      {4, XValue::ofInt(5), "5"},
      {4, XValue::ofText(u""), ""},
      {4, XValue::ofText(u"\u20AC\U0001F600"), "\xE2\x82\xAC\xF0\x9F\x98\x80"},
  };
  for (const WriteCase& c : cases) {
    MemoryDataSet rows(storeOf("n,l,d,t\n1,5000000000,1.25,abc\n"));
    NotingSink sink(rows);
    const std::string before = textAt(rows, 1, c.column);
    rows.SetValue(1, c.column, c.value);
    EXPECT_EQ(textAt(rows, 1, c.column), c.text ? c.text : before);
    EXPECT_EQ(statuses(rows), c.text ? "3" : "0");
    EXPECT_EQ(sink.taken(), c.text ? "CellChanged(1," + std::to_string(c.column) + ")" : "");
  }
}

TEST(SetValue, TheSameValueChangesNothing) {
  MemoryDataSet rows(storeOf("n,d,t,e\n1,1.25,abc,\n"));
  NotingSink sink(rows);
  rows.SetText(1, 1, wide("1"));
  rows.SetText(1, 2, wide("1.25"));
  rows.SetText(1, 3, wide("abc"));
  rows.SetText(1, 4, wide(""));
  rows.SetValue(1, 4, XValue());
  EXPECT_EQ(sink.taken(), "");
  EXPECT_EQ(statuses(rows), "0");
}

// An editor that was only looked into writes back what it showed.
TEST(SetValue, TheTextThatACellShowsChangesNothing) {
  ColumnStore store;
  ColumnFormat decimal;
  decimal.name = u"D";
  decimal.type = columnDecimal;
  decimal.scale = 2;
  store.addColumn(decimal);
  store.addColumn({u"T"});
  const XValue exact = XValue::ofDouble(3.14159);
  store.column(0).appendReal(3.14159);
  store.column(1).appendEmpty();
  store.finishRecord();
  MemoryDataSet rows(std::move(store));
  rows.SetText(1, 1, u"3.14");
  rows.SetText(1, 2, u"");  // a cell without a value
  EXPECT_EQ(valueAt(rows, 1, 1), exact);
  EXPECT_EQ(statuses(rows), "0");
  rows.SetText(1, 1, u"3.15");
  EXPECT_EQ(valueAt(rows, 1, 1), XValue::ofDouble(3.15));
  EXPECT_EQ(statuses(rows), std::to_string(rowUpdated));
}

TEST(SetValue, RowsAndColumnsThatDoNotExist) {
  MemoryDataSet rows(storeOf("n\n1\n"));
  NotingSink sink(rows);
  for (const auto& [row, column] : {std::pair{0, 1}, {2, 1}, {1, 0}, {1, 2}, {-5, 1}})
    rows.SetValue(row, column, XValue::ofInt(9));
  rows.SetTextByName(1, wide("nope"), wide("9"));
  EXPECT_EQ(sink.taken(), "");
  EXPECT_EQ(columnTexts(rows, 1), "1");
}

TEST(Rows, InsertedRowsBecomeCurrent) {
  MemoryDataSet rows(storeOf("n\n1\n2\n"));
  NotingSink sink(rows);
  EXPECT_EQ(rows.InsertRow(2), 2);
  EXPECT_EQ(sink.taken(), "RowInserted(2) CurrentRowChanged(2)");
  EXPECT_EQ(rows.InsertRow(99), 4);
  EXPECT_EQ(rows.InsertRow(-3), 1);
  rows.SetText(1, 1, wide("a"));
  rows.SetText(1, 1, wide("7"));
  EXPECT_EQ(columnTexts(rows, 1), "7 1  2 ");
  EXPECT_EQ(statuses(rows), "1 0 1 0 1");
  EXPECT_EQ(answer(rows, &DataSetControl::GetCurrentRow), 1);
}

struct DeleteCase {
  std::int32_t current, deleted;
  const char* left;
  std::int32_t currentAfter;
  const char* notes;
};

TEST(Rows, DeletionMovesTheCurrentRow) {
  const DeleteCase cases[] = {
      {1, 2, "1 3", 1, "RowDeleted(2)"},
      {2, 2, "1 3", 2, "RowDeleted(2) CurrentRowChanged(2)"},
      {3, 2, "1 3", 2, "RowDeleted(2) CurrentRowChanged(2)"},
      {3, 3, "1 2", 2, "RowDeleted(3) CurrentRowChanged(2)"},
      {3, 4, "1 2 3", 3, ""},
      {3, 0, "1 2 3", 3, ""},
  };
  for (const DeleteCase& c : cases) {
    MemoryDataSet rows(storeOf("n\n1\n2\n3\n"));
    rows.SetCurrentRow(c.current);
    NotingSink sink(rows);
    rows.DeleteRow(c.deleted);
    EXPECT_EQ(columnTexts(rows, 1), c.left);
    EXPECT_EQ(answer(rows, &DataSetControl::GetCurrentRow), c.currentAfter);
    EXPECT_EQ(sink.taken(), c.notes);
  }
  MemoryDataSet last(storeOf("n\n1\n"));
  last.DeleteRow(1);
  EXPECT_EQ(rowCount(last), 0);
  EXPECT_EQ(answer(last, &DataSetControl::GetCurrentRow), 0);
}

TEST(Rows, KeptDeletedRowsStayUnlessInserted) {
  MemoryDataSet rows(storeOf("n\n1\n2\n"), {.keepDeleted = true});
  rows.InsertRow(2);
  NotingSink sink(rows);
  rows.DeleteRow(1);
  EXPECT_EQ(sink.taken(), "RowDeleted(1)");
  EXPECT_EQ(statuses(rows), "2 1 0");
  rows.DeleteRow(1);
  EXPECT_EQ(sink.taken(), "");
  rows.DeleteRow(2);
  EXPECT_EQ(statuses(rows), "2 0");
  rows.acceptChanges();
  EXPECT_EQ(columnTexts(rows, 1), "2");
  EXPECT_EQ(statuses(rows), "0");
  EXPECT_FALSE(rows.isModified());
}

TEST(Rows, RefusedChanges) {
  MemoryDataSet rows(storeOf("n\n1\n2\n"));
  NotingSink first(rows);
  NotingSink second(rows);
  second.allow = false;
  rows.SetText(1, 1, wide("9"));
  rows.DeleteRow(1);
  EXPECT_EQ(rows.InsertRow(1), 0);
  EXPECT_EQ(columnTexts(rows, 1), "1 2");
  EXPECT_EQ(first.taken(), "");
  second.allow = true;
  rows.SetText(1, 1, wide("9"));
  EXPECT_EQ(columnTexts(rows, 1), "9 2");
}

TEST(Rows, AppendAndReplaceSayItOnce) {
  MemoryDataSet rows(storeOf("n\n1\n"));
  NotingSink sink(rows);
  rows.appendRows(3);
  EXPECT_EQ(sink.taken(), "RowsAdded(4)");
  rows.replaceRows(storeOf("a,b\nx,y\n"));
  EXPECT_EQ(sink.taken(), "StructureChanged(0)");
  EXPECT_EQ(columnTexts(rows, 2), "y");
  EXPECT_EQ(statuses(rows), "0");
}

// A set in which rows come, go and change must hold what a plain list of texts holds.
TEST(Rows, AgreeWithAPlainListOverRandomHistories) {
  std::mt19937 random(11);
  const auto pick = [&](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
  MemoryDataSet rows(storeOf("t,n\nstart,0\n"));
  std::vector<std::string> texts = {"start"};
  for (int step = 0; step < 20000; ++step) {
    const int kind = pick(10);
    const auto index = static_cast<std::size_t>(pick(static_cast<int>(texts.size()) + 1));
    const auto row = static_cast<std::int32_t>(index) + 1;
    if (kind < 2) {
      ASSERT_EQ(rows.InsertRow(row), row);
      texts.insert(texts.begin() + row - 1, "");
    } else if (index == texts.size()) {
      continue;
    } else if (kind < 4) {
      rows.DeleteRow(row);
      texts.erase(texts.begin() + row - 1);
    } else {
      texts[index] = std::string(static_cast<std::size_t>(pick(300)), static_cast<char>('a' + pick(26)));
      rows.SetText(row, 1, wide(texts[index]));
    }
    if (step % 97 != 0) continue;
    ASSERT_EQ(rowCount(rows), static_cast<std::int32_t>(texts.size()));
    for (std::size_t i = 0; i < texts.size(); ++i)
      ASSERT_EQ(textAt(rows, static_cast<std::int32_t>(i) + 1, 1), texts[i]) << step;
  }
  // Left-over text is packed away: a few hundred short texts do not hold megabytes.
  EXPECT_LT(rows.store().memoryBytes(), std::size_t{1} << 20);
}

}  // namespace
}  // namespace tessera
