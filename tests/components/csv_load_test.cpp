#include <algorithm>
#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "components/csv_file.h"
#include "components/data_set_fixture.h"
#include "components/open_data_set.h"

namespace tessera {
namespace {

using testing::storeOf;
using testing::TempFolder;
using testing::textAt;
using testing::valueAt;

struct TypeCase {
  const char* cells;  // one a line
  std::int32_t type;
  std::int32_t scale;
};

TEST(CsvLoad, TypesAreToldFromTheCells) {
  const TypeCase cases[] = {
      {"1\n-20\n0\n", columnInteger, 0},
      {"1\n\n3\n", columnInteger, 0},
      {"2147483647\n-2147483648\n", columnInteger, 0},
      {"2147483648\n1\n", columnLong, 0},
      {"-2147483649\n", columnLong, 0},
      {"9223372036854775807\n", columnLong, 0},
      {"9223372036854775808\n", columnText, 0},
      {"1.5\n2\n3.25\n", columnDecimal, 2},
      {"0.125\n-0.5\n", columnDecimal, 3},
      {"123456789012.345\n", columnDecimal, 3},
      {"1234567890123.456\n", columnText, 0},
      {"0.1234567890123456\n", columnText, 0},
      {"1234567890123456\n0.5\n", columnText, 0},
      {"1.50000000000000000000\n", columnDecimal, 20},
      {"007\n1\n", columnText, 0},
      {"00.5\n", columnText, 0},
      {"-0\n", columnText, 0},
      {"+1\n", columnText, 0},
      {" 1\n", columnText, 0},
      {"1e5\n", columnText, 0},
      {".5\n", columnText, 0},
      {"5.\n", columnText, 0},
      {"1.2.3\n", columnText, 0},
      {"-\n", columnText, 0},
      {"nan\n", columnText, 0},
      {"1\nx\n2.5\n", columnText, 0},
      {"\n\n", columnText, 0},
      {"", columnText, 0},
  };
  for (const TypeCase& c : cases) {
    const ColumnStore store = storeOf(std::string("a\n") + c.cells);
    EXPECT_EQ(store.column(0).format().type, c.type) << c.cells;
    EXPECT_EQ(store.column(0).format().scale, c.scale) << c.cells;
  }
}

TEST(CsvLoad, CellsAsValuesAndTexts) {
  MemoryDataSet rows(storeOf("n,l,d,t\n1,5000000000,1.5,\xC3\xA4\xF0\x9F\x98\x80\n,,,\n-3,2,-0.25,x\n"));
  EXPECT_EQ(valueAt(rows, 1, 1), XValue::ofInt(1));
  EXPECT_EQ(valueAt(rows, 1, 2), XValue::ofInt64(5000000000));
  EXPECT_EQ(valueAt(rows, 1, 3), XValue::ofDouble(1.5));
  EXPECT_EQ(valueAt(rows, 1, 4), XValue::ofText(u"\u00E4\U0001F600"));
  EXPECT_EQ(textAt(rows, 1, 3), "1.50");
  EXPECT_EQ(textAt(rows, 3, 3), "-0.25");
  for (std::int32_t column = 1; column <= 4; ++column) {
    EXPECT_EQ(valueAt(rows, 2, column), column == 4 ? XValue::ofText(u"") : XValue());
    EXPECT_EQ(textAt(rows, 2, column), "");
  }
  for (const auto& [row, column] : {std::pair{0, 1}, {4, 1}, {1, 0}, {1, 5}, {-1, -1}}) {
    EXPECT_EQ(valueAt(rows, row, column).type(), VT_EMPTY);
    EXPECT_EQ(textAt(rows, row, column), "");
  }
}

TEST(CsvLoad, GivenTypes) {
  const std::vector<FieldSpec> fields = {{.name = "n", .type = columnInteger},
                                         {.name = "d", .type = columnDecimal, .scale = 2},
                                         {.name = "t", .type = columnText, .length = 40}};
  MemoryDataSet rows(storeOf("n,d,t\n007,1.239, 5 \n +3 ,2e1,6\n", fields));
  EXPECT_EQ(valueAt(rows, 1, 1), XValue::ofInt(7));
  EXPECT_EQ(valueAt(rows, 2, 1), XValue::ofInt(3));
  EXPECT_EQ(textAt(rows, 1, 2), "1.24");
  EXPECT_EQ(valueAt(rows, 1, 2), XValue::ofDouble(1.239));
  EXPECT_EQ(textAt(rows, 2, 2), "20.00");
  EXPECT_EQ(textAt(rows, 1, 3), " 5 ");
  EXPECT_EQ(testing::answer(rows, &DataSetControl::GetColumnLength, 3), 40);
}

struct FaultCase {
  const char* csv;
  std::vector<FieldSpec> fields;
  const char* expected;
};

TEST(CsvLoad, FaultsNameFileLineAndReason) {
  const FaultCase cases[] = {
      {"a,b\n1\n", {}, ":2: 1 field instead of 2"},
      {"a\n1\n", {{.name = "b"}}, ":1: there is no column b"},
      {"a\n1\nx\n", {{.name = "a", .type = columnInteger}}, ":3: \"x\" in column a is not an integer"},
      {"a\n2147483648\n",
       {{.name = "a", .type = columnInteger}},
       ":2: \"2147483648\" in column a is not an integer"},
      {"a\n1.5\n", {{.name = "a", .type = columnLong}}, ":2: \"1.5\" in column a is not a whole number"},
      {"a\ninf\n", {{.name = "a", .type = columnDecimal}}, ":2: \"inf\" in column a is not a decimal number"},
  };
  for (const FaultCase& c : cases) {
    const auto loaded = loadCsv(c.csv, "bad.csv", c.fields);
    ASSERT_FALSE(loaded) << c.csv;
    EXPECT_EQ(loaded.error().message(), std::string("bad.csv") + c.expected);
  }
}

TEST(CsvLoad, ColumnsWithoutANameOfTheirOwnGetOne) {
  const std::pair<const char*, const char*> rows[] = {
      {"a,,c", "a COLUMN2 c"},           {"a,b,a,a", "a b a_2 a_3"},
      {"a,a,a_2", "a a_3 a_2"},          {",COLUMN1,,COLUMN1", "COLUMN1_2 COLUMN1 COLUMN3 COLUMN1_3"},
      {",,", "COLUMN1 COLUMN2 COLUMN3"}, {"n,N", "n N"},
  };
  for (const auto& [header, expected] : rows) {
    const ColumnStore store = storeOf(std::string(header) + "\n");
    std::string names;
    for (std::int32_t c = 0; c < store.columnCount(); ++c) {
      names += (c > 0 ? " " : "") + store.column(c).format().name.toUtf8();
    }
    EXPECT_EQ(names, expected) << header;
  }
}

// Both readings are told of, with bytes that only grow up to the end; a refusal ends either of them.
TEST(CsvLoad, TellsHowFarItIsAndStops) {
  std::string text = "a,b\n";
  while (text.size() < (std::size_t{5} << 20)) text += "12345,some words that fill a block\n";
  std::vector<std::int64_t> told;
  std::int64_t stopAt = std::numeric_limits<std::int64_t>::max();
  const LoadProgress progress = [&](std::int64_t done, std::int64_t total) {
    EXPECT_EQ(total, 2 * static_cast<std::int64_t>(text.size()));
    told.push_back(done);
    return done < stopAt;
  };
  ASSERT_TRUE(loadCsv(text, "long.csv", {}, progress));
  EXPECT_GE(told.size(), 10u);
  EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
  EXPECT_EQ(told.back(), 2 * static_cast<std::int64_t>(text.size()));
  for (const double part : {0.2, 0.8}) {
    stopAt = static_cast<std::int64_t>(2 * part * static_cast<double>(text.size()));
    const auto loaded = loadCsv(text, "long.csv", {}, progress);
    ASSERT_FALSE(loaded);
    EXPECT_EQ(loaded.error().message(), std::string("long.csv: ") + cancelledReason);
    EXPECT_LT(told.back(), stopAt + (std::int64_t{2} << 20));
  }
}

// It is read from where it stands, and twice.
TEST(CsvLoad, StreamsMustGoBack) {
  class OneWay : public std::stringbuf {
    using std::stringbuf::stringbuf;
    pos_type seekpos(pos_type, std::ios::openmode) override { return pos_type(off_type(-1)); }
  };
  std::stringbuf whole("a letter:\na\n1\n");
  std::istream in(&whole);
  in.ignore(10);
  const auto loaded = loadCsv(in, "letter");
  ASSERT_TRUE(loaded) << loaded.error().message();
  EXPECT_EQ(loaded->store.recordCount(), 1);
  OneWay oneWay("a\n1\n");
  std::istream pipe(&oneWay);
  EXPECT_EQ(loadCsv(pipe, "pipe").error().message(), "pipe: it cannot be read twice");
}

TEST(CsvLoad, FilesThatCannotBeRead) {
  const TempFolder folder;
  EXPECT_EQ(loadCsvFile(folder.file("none.csv")).error().message(),
            folder.file("none.csv") + ": it cannot be opened: No such file or directory");
  EXPECT_EQ(loadCsvFile(folder.file("")).error().reason, "it is a folder and not a file");
}

TEST(CsvLoad, OptionsThatNameUnknownColumns) {
  const TempFolder folder;
  const DataSource source{.file = folder.write("a.csv", "a,b\n1,2\n")};
  const std::pair<DataSetOptions, const char*> cases[] = {
      {{.sort = "+a,-c"}, "the sort text \"+a,-c\" names a column that does not exist"},
      {{.subsum = "1:c"}, "the groups \"1:c\" name a column that does not exist"},
      {{.subsum = "1:a,b"}, "\"1:a,b\" is no list of groups"},
      {{.level = "lv"}, "there is no level column lv"},
  };
  for (const auto& [options, reason] : cases) {
    const auto opened = openDataSet(source, options);
    ASSERT_FALSE(opened) << reason;
    EXPECT_EQ(opened.error().reason, reason);
  }
}

TEST(CsvWrite, RoundTripsByteForByte) {
  const char* const files[] = {
      "a,b,c,d\n1,1.50,x,5000000000\n-2,0.25,,\n,,\"q\"\"x\",7\n",
      "a;b\n\"1;5\";x,y\n\"two\nlines\";\"cr\r\nlf\"\n",
      "a\tb\n007\t1\n\xC3\xA4\t\xF0\x9F\x98\x80\n",
      "a\n\"\"\nx\n",
      "a,b\n12345678901234.50,1\n0.25,2\n",
      "a\n123456789012.345000\n0.000001\n",
      "a,b\n",
      "\xEF\xBB\xBF"
      "a,b\r\n1,x\r\n2,\"two\nlines\"\r\n",
      "\xEF\xBB\xBF"
      "a\n1\n",
      "a,,a\n1,2,3\n",
  };
  const TempFolder folder;
  for (const char* const csv : files) {
    auto opened = openDataSet({.file = folder.write("in.csv", csv)});
    ASSERT_TRUE(opened) << opened.error().message();
    ASSERT_FALSE(writeCsvFile(*opened->rows, folder.file("out.csv"), opened->form));
    EXPECT_EQ(folder.read("out.csv"), csv);
  }
}

TEST(CsvWrite, LeavesOutDeletedAndSubtotalRowsAndKeepsPreciseDecimals) {
  const TempFolder folder;
  const DataSetOptions options{.keepDeleted = true, .subsum = "1:k"};
  auto opened = openDataSet({.file = folder.write("in.csv", "k,d\na,0.5\na,1.5\nb,2.5\n")}, options);
  MemoryDataSet& rows = *opened->rows;
  rows.DeleteRow(2);
  rows.SetValue(1, 2, XValue::ofDouble(0.1 + 0.2));
  ASSERT_FALSE(saveDataSet(*opened));
  EXPECT_EQ(folder.read("in.csv"), "k,d\na,0.3\nb,2.5\n");
  EXPECT_EQ(testing::columnTexts(rows, 1), "a =a b =b");
  EXPECT_FALSE(rows.isModified());
  rows.SetValue(1, 2, XValue::ofDouble(0.125));
  ASSERT_FALSE(saveDataSet(*opened));
  EXPECT_EQ(folder.read("in.csv"), "k,d\na,0.125\nb,2.5\n");
}

// A file has an order of rows: whether saving would change it.
TEST(CsvWrite, AnotherOrderIsAChange) {
  const TempFolder folder;
  const std::string path = folder.write("in.csv", "a,b\n1,x\n2,z\n3,y\n");
  auto opened = openDataSet({.file = path});
  MemoryDataSet& rows = *opened->rows;
  const auto sort = [&](const char16_t* text) {
    rows.SetSortExpr(text);
    rows.ApplySort();
    return hasChanges(*opened);
  };
  EXPECT_FALSE(sort(u"+a"));
  EXPECT_TRUE(sort(u"-a"));
  EXPECT_TRUE(sort(u"-a"));
  EXPECT_FALSE(sort(u""));
  EXPECT_TRUE(sort(u"-b"));
  EXPECT_FALSE(rows.isModified());
  ASSERT_FALSE(saveDataSet(*opened));
  EXPECT_EQ(folder.read("in.csv"), "a,b\n2,z\n3,y\n1,x\n");
  EXPECT_FALSE(hasChanges(*opened));
  EXPECT_FALSE(sort(u"-b"));
  EXPECT_TRUE(sort(u"")) << "the order of loading is no longer that of the file";
  const auto sorted = openDataSet({.file = path}, {.sort = "+a"});
  EXPECT_FALSE(hasChanges(*sorted)) << "the form's own order";
}

TEST(CsvWrite, TellsWhetherSomebodyElseWroteTheFile) {
  const TempFolder folder;
  const std::string path = folder.write("in.csv", "a\n1\n");
  auto opened = openDataSet({.file = path});
  EXPECT_FALSE(isStale(*opened));
  folder.write("in.csv", "a\n1\n2\n");
  EXPECT_TRUE(isStale(*opened));
  ASSERT_FALSE(saveDataSet(*opened));
  EXPECT_FALSE(isStale(*opened));
  const auto later = std::filesystem::last_write_time(path) + std::chrono::seconds(2);
  std::filesystem::last_write_time(path, later);
  EXPECT_TRUE(isStale(*opened)) << "the same size at another time";
  std::filesystem::remove(path);
  EXPECT_TRUE(isStale(*opened));
}

TEST(CsvWrite, FailureLeavesTheOldFileAndNoOther) {
  const TempFolder folder;
  MemoryDataSet rows(storeOf("a\n1\n"));
  rows.SetValue(1, 1, XValue::ofInt(2));
  // A folder with something in it cannot be replaced by a file.
  std::filesystem::create_directory(folder.file("taken"));
  folder.write("taken/inside", "old");
  const auto fault = saveCsvFile(rows, folder.file("taken"));
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->file, folder.file("taken"));
  EXPECT_NE(fault->reason.find("cannot be replaced"), std::string::npos);
  EXPECT_EQ(folder.read("taken/inside"), "old");
  EXPECT_EQ(folder.names(), std::vector<std::string>{"taken"});
  EXPECT_TRUE(rows.isModified());
  EXPECT_TRUE(saveCsvFile(rows, folder.file("no/such/folder.csv")));
}

TEST(CsvWrite, KeepsLinkAndPermissions) {
  namespace fs = std::filesystem;
  const TempFolder folder;
  folder.write("real.csv", "old");
  fs::permissions(folder.file("real.csv"), fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink("real.csv", folder.file("link.csv"));
  MemoryDataSet rows(storeOf("a\n1\n"));
  ASSERT_FALSE(writeCsvFile(rows, folder.file("link.csv")));
  EXPECT_TRUE(fs::is_symlink(folder.file("link.csv")));
  EXPECT_EQ(folder.read("real.csv"), "a\n1\n");
  EXPECT_EQ(fs::status(folder.file("real.csv")).permissions(),
            fs::perms::owner_read | fs::perms::owner_write);
}

}  // namespace
}  // namespace tessera
