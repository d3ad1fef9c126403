#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "components/data_set_fixture.h"
#include "components/open_data_set.h"
#include "components/sqlite_handle.h"

namespace tessera {
namespace {

using testing::columnTexts;
using testing::TempFolder;
using testing::textAt;
using testing::valueAt;
using testing::wide;

class Sqlite : public ::testing::Test {
 protected:
  void run(const std::string& sql) {
    SqliteDatabase database;
    const std::string path = folder_.file("shop.sqlite");
    std::ofstream(path, std::ios::app);
    ASSERT_TRUE(database.open(path, true));
    ASSERT_TRUE(database.run(sql)) << database.fault();
  }
  // All rows of a query: "a|b/c|d", null as "-".
  std::string query(const std::string& sql) {
    SqliteDatabase database;
    EXPECT_TRUE(database.open(folder_.file("shop.sqlite"), false));
    SqliteStatement statement = database.prepare(sql);
    std::string all;
    while (statement && statement.step() == SQLITE_ROW) {
      if (!all.empty()) all += '/';
      for (int c = 0; c < statement.columns(); ++c) {
        if (c > 0) all += '|';
        all += statement.type(c) == SQLITE_NULL ? "-" : std::string(statement.text(c));
      }
    }
    return all;
  }
  OpenedDataSet openTable(const std::string& table, const DataSetOptions& options = {}) {
    auto opened = openDataSet({.database = folder_.file("shop.sqlite"), .table = table}, options);
    if (opened) return *opened;
    ADD_FAILURE() << opened.error().message();
    return {std::make_shared<MemoryDataSet>(), {}, {}};
  }
  std::string faultOf(const DataSource& source) {
    const auto opened = openDataSet(source);
    return opened ? "" : opened.error().message();
  }

  TempFolder folder_;
};

TEST_F(Sqlite, TypesFromValuesAndDeclarations) {
  run("CREATE TABLE t (i INTEGER, big INTEGER, declared BIGINT, r REAL, price DECIMAL(10,2), whole "
      "NUMERIC(8,3),"
      " s TEXT, digits TEXT, mixed, none_int INT, none_dec DECIMAL(9, 4), none, b BLOB);"
      "INSERT INTO t VALUES (1, 5000000000, 7, 2.0, 3.5, 4, 'x', '007', 1, NULL, NULL, NULL, x'00'),"
      "(-2, 1, 8, 0.125, 2, 5, '', '12', 'two', NULL, NULL, NULL, NULL);");
  OpenedDataSet opened = openTable("t");
  struct Case {
    std::int32_t type, scale;
    const char *first, *second;
  };
  const Case cases[] = {
      {columnInteger, 0, "1", "-2"},
      {columnLong, 0, "5000000000", "1"},
      {columnLong, 0, "7", "8"},
      {columnDecimal, 3, "2.000", "0.125"},
      {columnDecimal, 2, "3.50", "2.00"},
      {columnDecimal, 3, "4.000", "5.000"},
      {columnText, 0, "x", ""},
      {columnText, 0, "007", "12"},
      {columnText, 0, "1", "two"},
      {columnInteger, 0, "", ""},
      {columnDecimal, 4, "", ""},
      {columnText, 0, "", ""},
      {columnText, 0, "", ""},
  };
  MemoryDataSet& rows = *opened.rows;
  ASSERT_EQ(testing::answer(rows, &DataSetControl::GetColumnCount), 13);
  for (std::int32_t c = 1; c <= 13; ++c) {
    const Case& expected = cases[c - 1];
    EXPECT_EQ(testing::answer(rows, &DataSetControl::GetColumnType, c), expected.type) << c;
    EXPECT_EQ(testing::answer(rows, &DataSetControl::GetColumnScale, c), expected.scale) << c;
    EXPECT_EQ(textAt(rows, 1, c), expected.first) << c;
    EXPECT_EQ(textAt(rows, 2, c), expected.second) << c;
  }
  EXPECT_FALSE(rows.store().column(6).isEmpty(1)) << "a text of no characters is not null";
  EXPECT_TRUE(rows.store().column(11).isEmpty(0));
  EXPECT_EQ(valueAt(rows, 1, 12), XValue::ofText(u"")) << "but shows as one";
}

// How many rows there are is known only after the first reading.
TEST_F(Sqlite, TellsHowFarItIsAndStops) {
  run("CREATE TABLE t (n INTEGER); WITH RECURSIVE c(n) AS (VALUES(1) UNION ALL SELECT n + 1 FROM c WHERE n < "
      "20000) INSERT INTO t SELECT n FROM c");
  const DataSource source{.database = folder_.file("shop.sqlite"), .table = "t"};
  std::vector<std::pair<std::int64_t, std::int64_t>> told;
  std::size_t most = 1000;
  const LoadProgress progress = [&](std::int64_t done, std::int64_t total) {
    if (told.empty() || told.back() != std::pair{done, total}) told.emplace_back(done, total);
    return told.size() < most;
  };
  const auto opened = openDataSet(source, {}, progress);
  ASSERT_TRUE(opened);
  const std::vector<std::pair<std::int64_t, std::int64_t>> expected = {
      {4096, 0},     {8192, 0},     {12288, 0},     {16384, 0},
      {4096, 20000}, {8192, 20000}, {12288, 20000}, {16384, 20000}};
  EXPECT_EQ(told, expected);
  for (const std::size_t calls : {2u, 6u}) {
    told.clear();
    most = calls;
    const auto stopped = openDataSet(source, {}, progress);
    ASSERT_FALSE(stopped);
    EXPECT_EQ(told.size(), calls);
    EXPECT_NE(stopped.error().message().find(cancelledReason), std::string::npos);
  }
}

// This one would count for hours before its first row.
TEST_F(Sqlite, AQueryThatWorksWithoutRowsCanBeStopped) {
  run("CREATE TABLE t (n INTEGER)");
  const DataSource source{
      .database = folder_.file("shop.sqlite"),
      .query =
          "WITH RECURSIVE c(n) AS (VALUES(1) UNION ALL SELECT n + 1 FROM c) SELECT n FROM c WHERE n < 0"};
  int questions = 0;
  const auto stopped = openDataSet(source, {}, [&](std::int64_t done, std::int64_t) {
    EXPECT_EQ(done, 0);
    return ++questions < 3;
  });
  ASSERT_FALSE(stopped);
  EXPECT_EQ(questions, 3);
  EXPECT_EQ(stopped.error().reason, std::string("query: ") + cancelledReason);
}

TEST_F(Sqlite, ExactRowCountsOfTableAndQuery) {
  run("CREATE TABLE n (v INTEGER); WITH RECURSIVE c(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM c WHERE x < "
      "12345)"
      " INSERT INTO n SELECT x FROM c;");
  EXPECT_EQ(testing::rowCount(*openTable("n").rows), 12345);
  EXPECT_EQ(testing::rowCount(*openTable("N").rows), 12345);
  auto some =
      openDataSet({.database = folder_.file("shop.sqlite"), .query = "SELECT v * 2 AS w FROM n WHERE v < 4"});
  ASSERT_TRUE(some);
  EXPECT_EQ(columnTexts(*some->rows, 1), "2 4 6");
  some->rows->SetText(1, 1, wide("9"));
  const auto fault = saveDataSet(*some);
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->reason, "the rows do not come from a table");
}

TEST_F(Sqlite, Faults) {
  run("CREATE TABLE t (a, b); INSERT INTO t VALUES ('x', 1);");
  const std::string file = folder_.file("shop.sqlite");
  EXPECT_EQ(faultOf({.database = file, .table = "none"}), file + ": table none: there is no such table");
  EXPECT_EQ(faultOf({.database = file, .query = "SELECT nope FROM t"}),
            file + ": query: no such column: nope");
  EXPECT_EQ(faultOf({.database = file, .query = "SELECT a, b AS a FROM t"}),
            file + ": query: two columns are named a");
  EXPECT_EQ(faultOf({.database = file, .query = "DELETE FROM t"}), file + ": query: it gives no columns");
  EXPECT_EQ(faultOf({.database = file, .table = "t", .fields = {{.name = "a", .type = columnInteger}}}),
            file + ": table t: row 1: \"x\" in column a is not an integer");
  EXPECT_EQ(faultOf({.database = folder_.file("none.sqlite"), .table = "t"}),
            folder_.file("none.sqlite") + ": unable to open database file");
  folder_.write("text.sqlite", std::string(2000, 'x'));
  EXPECT_EQ(faultOf({.database = folder_.file("text.sqlite"), .table = "t"}),
            folder_.file("text.sqlite") + ": table t: file is not a database");
}

TEST_F(Sqlite, ChangesGoBackAndDefaultsComeBack) {
  run("CREATE TABLE city (id INTEGER PRIMARY KEY, name TEXT NOT NULL, pop INTEGER DEFAULT 7, raw BLOB);"
      "INSERT INTO city VALUES (10,'Aachen',1,x'0102'),(20,'Bonn',2,NULL),(30,'Celle',3,NULL);");
  OpenedDataSet opened = openTable("city", {.keepDeleted = true, .sort = "-name"});
  MemoryDataSet& rows = *opened.rows;
  rows.DeleteRow(2);
  rows.SetText(3, 3, wide("100"));
  const std::int32_t added = rows.InsertRow(99);
  rows.SetText(added, 2, wide("D\xC3\xBCren"));
  EXPECT_FALSE(saveDataSet(opened));
  EXPECT_EQ(query("SELECT id, name, pop, hex(raw) FROM city ORDER BY id"),
            "10|Aachen|100|0102/30|Celle|3|/31|D\xC3\xBCren|7|");
  EXPECT_EQ(columnTexts(rows, 1), "30 10 31");
  EXPECT_EQ(columnTexts(rows, 3), "3 100 7");
  EXPECT_FALSE(rows.isModified());
  // The new row is known by its new number, also when that changes once more.
  rows.SetText(3, 1, wide("77"));
  EXPECT_FALSE(saveDataSet(opened));
  rows.SetText(3, 3, wide("8"));
  EXPECT_FALSE(saveDataSet(opened));
  rows.DeleteRow(1);
  EXPECT_FALSE(saveDataSet(opened));
  EXPECT_EQ(query("SELECT id, pop FROM city ORDER BY id"), "10|100/77|8");
}

TEST_F(Sqlite, AFailingConstraintLeavesEverythingAsItWas) {
  run("CREATE TABLE city (name TEXT UNIQUE, pop INTEGER CHECK (pop < 50));"
      "INSERT INTO city VALUES ('Aachen',1),('Bonn',2),('Celle',3);");
  const std::string before = query("SELECT rowid, * FROM city");
  OpenedDataSet opened = openTable("city", {.keepDeleted = true});
  MemoryDataSet& rows = *opened.rows;
  rows.DeleteRow(3);
  rows.SetText(1, 2, wide("11"));
  const std::int32_t added = rows.InsertRow(99);
  rows.SetText(added, 1, wide("Bonn"));
  const auto fault = saveDataSet(opened);
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->message(),
            folder_.file("shop.sqlite") + ": table city: row 4: UNIQUE constraint failed: city.name");
  EXPECT_EQ(query("SELECT rowid, * FROM city"), before);
  EXPECT_EQ(columnTexts(rows, 1), "Aachen Bonn Celle Bonn");
  EXPECT_EQ(testing::answer(rows, &DataSetControl::GetStatus, 3), rowDeleted);
  EXPECT_EQ(testing::answer(rows, &DataSetControl::GetStatus, 1), rowUpdated);
  EXPECT_EQ(testing::answer(rows, &DataSetControl::GetStatus, 4), rowInserted);
  rows.SetText(4, 1, wide("Essen"));
  EXPECT_FALSE(saveDataSet(opened));
  EXPECT_EQ(query("SELECT * FROM city"), "Aachen|11/Bonn|2/Essen|-");
}

TEST_F(Sqlite, RowsThatOthersTookAway) {
  run("CREATE TABLE t (v); INSERT INTO t VALUES (1),(2);");
  OpenedDataSet opened = openTable("t");
  run("DELETE FROM t WHERE v = 2");
  opened.rows->SetText(1, 1, wide("10"));
  opened.rows->SetText(2, 1, wide("20"));
  const auto fault = saveDataSet(opened);
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->reason, "table t: row 2: it is no longer in the table");
  EXPECT_EQ(query("SELECT v FROM t"), "1");
}

TEST_F(Sqlite, TablesWithoutRowNumbersAndWithHiddenOnes) {
  run("CREATE TABLE p (a TEXT, b INTEGER, v TEXT, PRIMARY KEY (a, b)) WITHOUT ROWID;"
      "INSERT INTO p VALUES ('x',1,'one'),('x',2,'two');"
      "CREATE TABLE \"odd \"\"name\" (_rowid_ TEXT, \"a b\" TEXT); INSERT INTO \"odd \"\"name\" VALUES "
      "('r','1');"
      "CREATE VIEW w AS SELECT v FROM p;");
  OpenedDataSet keyed = openTable("p");
  keyed.rows->SetText(1, 3, wide("1!"));
  keyed.rows->SetText(2, 2, wide("5"));  // the key itself
  EXPECT_FALSE(saveDataSet(keyed));
  keyed.rows->SetText(2, 3, wide("5!"));
  EXPECT_FALSE(saveDataSet(keyed));
  EXPECT_EQ(query("SELECT * FROM p"), "x|1|1!/x|5|5!");
  OpenedDataSet odd = openTable("odd \"name");
  odd.rows->SetText(1, 2, wide("2"));
  EXPECT_FALSE(saveDataSet(odd));
  EXPECT_EQ(query("SELECT * FROM \"odd \"\"name\""), "r|2");
  OpenedDataSet view = openTable("w");
  EXPECT_EQ(columnTexts(*view.rows, 1), "1! 5!");
  view.rows->SetText(1, 1, wide("z"));
  EXPECT_TRUE(saveDataSet(view));
}

TEST_F(Sqlite, NewRowsWithoutCellsAndRowsDeletedForGood) {
  run("CREATE TABLE t (v INTEGER DEFAULT 4); INSERT INTO t VALUES (1),(2);");
  OpenedDataSet opened = openTable("t");
  opened.rows->DeleteRow(1);
  opened.rows->InsertRow(1);
  opened.rows->InsertRow(1);
  opened.rows->DeleteRow(1);
  EXPECT_FALSE(saveDataSet(opened));
  EXPECT_EQ(query("SELECT v FROM t ORDER BY v"), "2/4");
  EXPECT_EQ(columnTexts(*opened.rows, 1), "4 2");
}

}  // namespace
}  // namespace tessera
