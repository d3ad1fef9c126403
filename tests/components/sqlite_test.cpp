#include <utility>
#include <vector>

#include "components/data_set_fixture.h"
#include "components/open_data_set.h"
#include "components/sqlite_handle.h"

namespace tessera {
namespace {

using testing::columnTexts;
using testing::obey;

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
      for (int c = 0; c < statement.columns(); ++c) {
        if (!all.empty()) all += c > 0 ? '|' : '/';
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

  TempFolder folder_;
};

TEST_F(Sqlite, TypesFromValuesAndDeclarations) {
  struct Case {
    const char *declared, *first, *second;  // with both values as SQL has them
    std::int32_t type, scale;
    const char* texts;
  };
  const Case cases[] = {
      {"INTEGER", "1", "-2", columnInteger, 0, "1 -2"},
      {"INTEGER", "5000000000", "1", columnLong, 0, "5000000000 1"},
      {"BIGINT", "7", "8", columnLong, 0, "7 8"},
      {"REAL", "2.0", "0.125", columnDecimal, 3, "2.000 0.125"},
      {"DECIMAL(10,2)", "3.5", "2", columnDecimal, 2, "3.50 2.00"},
      {"NUMERIC(8,3)", "4", "5", columnDecimal, 3, "4.000 5.000"},
      {"TEXT", "'x'", "''", columnText, 0, "x "},
      {"TEXT", "'007'", "'12'", columnText, 0, "007 12"},
      {"", "1", "'two'", columnText, 0, "1 two"},
      {"INT", "NULL", "NULL", columnInteger, 0, " "},
      {"DECIMAL(9, 4)", "NULL", "NULL", columnDecimal, 4, " "},
      {"", "NULL", "NULL", columnText, 0, " "},
      {"BLOB", "x'00'", "NULL", columnText, 0, " "},
  };
  for (const Case& c : cases) {
    run("DROP TABLE IF EXISTS t; CREATE TABLE t (v " + std::string(c.declared) + "); INSERT INTO t VALUES (" +
        c.first + "), (" + c.second + ")");
    const OpenedDataSet opened = openTable("t");
    const ColumnFormat& format = opened.rows->store().column(0).format();
    EXPECT_EQ(format.type, c.type) << c.declared << c.first;
    EXPECT_EQ(format.scale, c.scale) << c.declared << c.first;
    EXPECT_EQ(columnTexts(*opened.rows, 1), c.texts) << c.declared << c.first;
    EXPECT_EQ(opened.rows->store().column(0).isEmpty(1), std::string(c.second) == "NULL") << "'' is not null";
  }
}

// How many rows there are is known only after the first reading.
TEST_F(Sqlite, TellsHowFarItIsAndStops) {
  run("CREATE TABLE t (n INTEGER); WITH RECURSIVE c(n) AS (VALUES(1) UNION ALL SELECT n + 1 FROM c WHERE n < "
      "20000) INSERT INTO t SELECT n FROM c");
  std::string told;
  int calls = 0;
  for (const int most : {1000, 2, 6}) {
    told.clear();
    calls = 0;
    const LoadProgress progress = [&](std::int64_t done, std::int64_t total) {
      const std::string now = std::to_string(done) + "/" + std::to_string(total) + " ";
      if (!told.ends_with(now)) told += now, ++calls;
      return calls < most;
    };
    const auto opened = openDataSet({.database = folder_.file("shop.sqlite"), .table = "t"}, {}, progress);
    ASSERT_EQ(static_cast<bool>(opened), most == 1000);
    if (opened) {
      EXPECT_EQ(told, "4096/0 8192/0 12288/0 16384/0 4096/20000 8192/20000 12288/20000 16384/20000 ");
      EXPECT_EQ(opened->rows->rowCount(), 20000);
    } else {
      EXPECT_EQ(calls, most);
      EXPECT_NE(opened.error().message().find(cancelledReason), std::string::npos);
    }
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

TEST_F(Sqlite, Faults) {
  run("CREATE TABLE t (a, b); INSERT INTO t VALUES ('x', 1);");
  const std::string file = folder_.file("shop.sqlite"), none = folder_.file("none.sqlite"),
                    text = folder_.write("text.sqlite", std::string(2000, 'x'));
  const std::pair<DataSource, std::string> cases[] = {
      {{.database = file, .table = "none"}, file + ": table none: there is no such table"},
      {{.database = file, .query = "SELECT nope FROM t"}, file + ": query: no such column: nope"},
      {{.database = file, .query = "SELECT a, b AS a FROM t"}, file + ": query: two columns are named a"},
      {{.database = file, .query = "DELETE FROM t"}, file + ": query: it gives no columns"},
      {{.database = file, .table = "t", .fields = {{.name = "a", .type = columnInteger}}},
       file + ": table t: row 1: \"x\" in column a is not an integer"},
      {{.database = none, .table = "t"}, none + ": unable to open database file"},
      {{.database = text, .table = "t"}, text + ": table t: file is not a database"},
  };
  for (const auto& [source, fault] : cases) {
    const auto opened = openDataSet(source);
    ASSERT_FALSE(opened) << fault;
    EXPECT_EQ(opened.error().message(), fault);
  }
}

TEST_F(Sqlite, ChangesGoBackAndDefaultsComeBack) {
  struct Case {
    const char *create, *table;
    std::vector<const char*> scripts;  // each with a save behind it
    const char *query, *stored;
    const char* shown;  // the first column
  };
  const Case cases[] = {
      {"CREATE TABLE city (id INTEGER PRIMARY KEY, name TEXT NOT NULL, pop INTEGER DEFAULT 7, raw BLOB);"
       "INSERT INTO city VALUES (30,'Celle',3,NULL),(20,'Bonn',2,NULL),(10,'Aachen',1,x'0102');",
       "CITY",
       {"sort -name;delete 2;set 3 3 100;insert 99;set 4 2 D\xC3\xBCren"},
       "SELECT id, name, pop, hex(raw) FROM city ORDER BY id",
       "10|Aachen|100|0102/30|Celle|3|/31|D\xC3\xBCren|7|",
       "30 10 31"},
      // The new row is known by its new number, also when that changes once more.
      {"",
       "city",
       {"insert 9;set 4 2 x", "set 4 1 77", "set 4 3 8;delete 1"},
       "SELECT id, pop FROM city ORDER BY id",
       "30|3/31|7/77|8",
       "30 31 77"},
      // A key of more columns, and one of them changes; a table with odd names and a column that hides the
      // number.
      {"CREATE TABLE p (a TEXT, b INTEGER, v TEXT, PRIMARY KEY (a, b)) WITHOUT ROWID;"
       "INSERT INTO p VALUES ('x',1,'one'),('x',2,'two');",
       "p",
       {"set 1 3 1!;set 2 2 5", "set 2 3 5!"},
       "SELECT * FROM p",
       "x|1|1!/x|5|5!",
       "x x"},
      {"CREATE TABLE \"odd \"\"name\" (_rowid_ TEXT, \"a b\" TEXT); INSERT INTO \"odd \"\"name\" VALUES "
       "('r','1');",
       "odd \"name",
       {"set 1 2 2"},
       "SELECT * FROM \"odd \"\"name\"",
       "r|2",
       "r"},
      {"CREATE TABLE t (v INTEGER DEFAULT 4); INSERT INTO t VALUES (1),(2);",
       "t",
       {"delete 1;insert 1;insert 1;delete 1"},
       "SELECT v FROM t ORDER BY v",
       "2/4",
       "4 2"},
  };
  for (const Case& c : cases) {
    run(c.create);
    OpenedDataSet opened = openTable(c.table, {.keepDeleted = true});
    for (const char* const script : c.scripts) {
      obey(*opened.rows, script);
      EXPECT_FALSE(saveDataSet(opened)) << script;
    }
    EXPECT_EQ(query(c.query), c.stored);
    EXPECT_EQ(columnTexts(*opened.rows, 1), c.shown);
    EXPECT_FALSE(opened.rows->isModified());
  }
}

// All or nothing: what was changed stays as changed, and the next save can do it.
TEST_F(Sqlite, AFailingConstraintLeavesEverythingAsItWas) {
  run("CREATE TABLE city (name TEXT UNIQUE, pop INTEGER CHECK (pop < 50));"
      "INSERT INTO city VALUES ('Aachen',1),('Bonn',2),('Celle',3);");
  const std::string before = query("SELECT rowid, * FROM city");
  OpenedDataSet opened = openTable("city", {.keepDeleted = true});
  obey(*opened.rows, "delete 3;set 1 2 11;insert 99;set 4 1 Bonn");
  const auto fault = saveDataSet(opened);
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->message(),
            folder_.file("shop.sqlite") + ": table city: row 4: UNIQUE constraint failed: city.name");
  EXPECT_EQ(query("SELECT rowid, * FROM city"), before);
  EXPECT_EQ(columnTexts(*opened.rows, 1), "Aachen Bonn Celle Bonn");
  obey(*opened.rows, "set 4 1 Essen");
  EXPECT_FALSE(saveDataSet(opened));
  EXPECT_EQ(query("SELECT * FROM city"), "Aachen|11/Bonn|2/Essen|-");
}

TEST_F(Sqlite, WhatCannotBeSavedAndRowsThatOthersTookAway) {
  run("CREATE TABLE t (v); INSERT INTO t VALUES (1),(2); CREATE VIEW w AS SELECT v FROM t;");
  OpenedDataSet table = openTable("t"), view = openTable("w");
  auto sums = openDataSet({.database = folder_.file("shop.sqlite"), .query = "SELECT v * 2 AS w FROM t"});
  ASSERT_TRUE(sums);
  run("DELETE FROM t WHERE v = 2");
  for (OpenedDataSet* each : {&table, &view, &*sums}) obey(*each->rows, "set 1 1 10;set 2 1 20");
  EXPECT_EQ(saveDataSet(table)->reason, "table t: row 2: it is no longer in the table");
  EXPECT_TRUE(saveDataSet(view));
  EXPECT_EQ(saveDataSet(*sums)->reason, "the rows do not come from a table");
  EXPECT_EQ(query("SELECT v FROM t"), "1");
}

}  // namespace
}  // namespace tessera
