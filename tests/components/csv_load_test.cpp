#include <algorithm>
#include <chrono>
#include <limits>
#include <sstream>

#include "components/csv_file.h"
#include "components/data_set_fixture.h"
#include "components/open_data_set.h"

namespace tessera {
namespace {

namespace fs = std::filesystem;

using testing::storeOf;
using testing::textAt;
using testing::valueAt;

TEST(CsvLoad, TypesAreToldFromTheCells) {
  struct Case {
    std::int32_t type, scale;
    std::vector<const char*> cells;  // those of one column, one a line
  };
  const Case cases[] = {{columnInteger, 0, {"1\n-20\n0\n", "1\n\n3\n", "2147483647\n-2147483648\n"}},
                        {columnLong, 0, {"2147483648\n1\n", "-2147483649\n", "9223372036854775807\n"}},
                        {columnDecimal, 2, {"1.5\n2\n3.25\n"}},
                        {columnDecimal, 3, {"123456789012.345\n", "0.125\n-0.5\n"}},
                        {columnDecimal, 20, {"1.50000000000000000000\n"}},
                        {columnText,
                         0,
                         {"9223372036854775808\n", "1234567890123.456\n", "0.1234567890123456\n",
                          "1234567890123456\n0.5\n", "007\n1\n", "00.5\n", "-0\n", "+1\n", " 1\n", "1e5\n",
                          ".5\n", "5.\n", "1.2.3\n", "-\n", "nan\n", "1\nx\n2.5\n", "\n\n", ""}}};
  for (const Case& c : cases)
    for (const std::string cells : c.cells) {
      const ColumnStore store = storeOf("a\n" + cells);
      EXPECT_EQ(store.column(0).format().type, c.type) << cells;
      EXPECT_EQ(store.column(0).format().scale, c.scale) << cells;
    }
}

TEST(CsvLoad, CellsAsValuesAndTexts) {
  MemoryDataSet rows(storeOf("n,l,d,t\n1,5000000000,1.5,\xC3\xA4\xF0\x9F\x98\x80\n,,,\n-3,2,-0.25,x\n"));
  EXPECT_EQ(valueAt(rows, 1, 1), XValue::ofInt(1));
  EXPECT_EQ(valueAt(rows, 1, 2), XValue::ofInt64(5000000000));
  EXPECT_EQ(valueAt(rows, 1, 3), XValue::ofDouble(1.5));
  EXPECT_EQ(valueAt(rows, 1, 4), XValue::ofText(u"\u00E4\U0001F600"));
  EXPECT_EQ(textAt(rows, 1, 3) + textAt(rows, 3, 3) + textAt(rows, 2, 3), "1.50-0.25");
  for (std::int32_t column = 1; column <= 4; ++column)
    EXPECT_EQ(valueAt(rows, 2, column), column == 4 ? XValue::ofText(u"") : XValue());
  for (const auto& [row, column] : {std::pair{0, 1}, {4, 1}, {1, 0}, {1, 5}, {-1, -1}})
    EXPECT_EQ(valueAt(rows, row, column).type(), VT_EMPTY);
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

TEST(CsvLoad, FaultsNameFileLineAndReason) {
  struct Case {
    const char *csv, *column;
    std::int32_t type;
    const char* expected;
  };
  const Case cases[] = {
      {"a\n1\n", "b", columnText, "bad.csv:1: there is no column b"},
      {"a\n1\nx\n", "a", columnInteger, "bad.csv:3: \"x\" in column a is not an integer"},
      {"a\n2147483648\n", "a", columnInteger, "bad.csv:2: \"2147483648\" in column a is not an integer"},
      {"a\n1.5\n", "a", columnLong, "bad.csv:2: \"1.5\" in column a is not a whole number"},
      {"a\ninf\n", "a", columnDecimal, "bad.csv:2: \"inf\" in column a is not a decimal number"},
  };
  for (const Case& c : cases) {
    const auto loaded =
        loadCsv(std::string_view(c.csv), "bad.csv", std::vector{FieldSpec{.name = c.column, .type = c.type}});
    ASSERT_FALSE(loaded) << c.csv;
    EXPECT_EQ(loaded.error().message(), c.expected);
  }
}

TEST(CsvLoad, ColumnsWithoutANameOfTheirOwnGetOne) {
  const std::pair<std::string, const char*> rows[] = {
      {"a,,c", "a COLUMN2 c "},
      {"a,b,a,a", "a b a_2 a_3 "},
      {"a,a,a_2", "a a_3 a_2 "},
      {",COLUMN1,,COLUMN1", "COLUMN1_2 COLUMN1 COLUMN3 COLUMN1_3 "},
      {"n,N", "n N "}};
  for (const auto& [header, expected] : rows) {
    const ColumnStore store = storeOf(header + "\n");
    std::string names;
    for (std::int32_t c = 0; c < store.columnCount(); ++c)
      names += store.column(c).format().name.toUtf8() + " ";
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

// A stream is read from where it stands, and twice.
TEST(CsvLoad, StreamsMustGoBack) {
  struct OneWay : std::stringbuf {
    using std::stringbuf::stringbuf;
    pos_type seekpos(pos_type, std::ios::openmode) override { return pos_type(off_type(-1)); }
  } oneWay("a\n1\n");
  std::istringstream in("a letter:\na\n1\n");
  in.ignore(10);
  const auto loaded = loadCsv(in, "letter");
  ASSERT_TRUE(loaded) << loaded.error().message();
  EXPECT_EQ(loaded->store.recordCount(), 1);
  std::istream pipe(&oneWay);
  EXPECT_EQ(loadCsv(pipe, "pipe").error().message(), "pipe: it cannot be read twice");
}

TEST(CsvLoad, FilesAndOptionsThatAreNone) {
  const TempFolder folder;
  const std::string file = folder.write("a.csv", "a,b\n1,2\n");
  struct Case {
    std::string file;
    DataSetOptions options;
    const char* reason;
  };
  const Case cases[] = {
      {folder.file("none.csv"), {}, "it cannot be opened: No such file or directory"},
      {folder.file(""), {}, "it is a folder and not a file"},
      {file, {.sort = "+a,-c"}, "the sort text \"+a,-c\" names a column that does not exist"},
      {file, {.subsum = "1:c"}, "the groups \"1:c\" name a column that does not exist"},
      {file, {.subsum = "1:a,b"}, "\"1:a,b\" is no list of groups"},
      {file, {.level = "lv"}, "there is no level column lv"},
  };
  for (const Case& c : cases) {
    const auto opened = openDataSet({.file = c.file}, c.options);
    ASSERT_FALSE(opened) << c.reason;
    EXPECT_EQ(opened.error().file + opened.error().reason, c.file + c.reason);
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
}

// A file has an order of rows: whether saving would change it.
TEST(CsvWrite, AnotherOrderIsAChange) {
  const TempFolder folder;
  const std::string path = folder.write("in.csv", "a,b\n1,x\n2,z\n3,y\n");
  auto opened = openDataSet({.file = path});
  MemoryDataSet& rows = *opened->rows;
  const auto changedBy = [&](const char16_t* sort) {
    rows.SetSortExpr(sort);
    rows.ApplySort();
    return hasChanges(*opened);
  };
  EXPECT_FALSE(changedBy(u"+a"));
  EXPECT_TRUE(changedBy(u"-a"));
  EXPECT_FALSE(changedBy(u""));
  EXPECT_TRUE(changedBy(u"-b"));
  ASSERT_FALSE(saveDataSet(*opened));
  EXPECT_EQ(folder.read("in.csv"), "a,b\n2,z\n3,y\n1,x\n");
  EXPECT_FALSE(hasChanges(*opened));
  EXPECT_FALSE(changedBy(u"-b"));
  EXPECT_TRUE(changedBy(u"")) << "the order of loading is no longer that of the file";
  EXPECT_FALSE(hasChanges(*openDataSet({.file = path}, {.sort = "+a"}))) << "the form's own order";
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
  fs::last_write_time(path, fs::last_write_time(path) + std::chrono::seconds(2));
  EXPECT_TRUE(isStale(*opened)) << "the same size at another time";
  fs::remove(path);
  EXPECT_TRUE(isStale(*opened));
}

TEST(CsvWrite, FailureLeavesTheOldFileAndNoOther) {
  const TempFolder folder;
  MemoryDataSet rows(storeOf("a\n1\n"));
  rows.SetValue(1, 1, XValue::ofInt(2));
  // A folder with something in it cannot be replaced by a file.
  fs::create_directory(folder.file("taken"));
  folder.write("taken/inside", "old");
  const auto fault = saveCsvFile(rows, folder.file("taken"));
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->file, folder.file("taken"));
  EXPECT_NE(fault->reason.find("cannot be replaced"), std::string::npos);
  EXPECT_EQ(folder.read("taken/inside") + folder.names(), "oldtaken ");
  EXPECT_TRUE(rows.isModified());
  EXPECT_TRUE(saveCsvFile(rows, folder.file("no/such/folder.csv")));
}

TEST(CsvWrite, KeepsLinkAndPermissions) {
  const TempFolder folder;
  folder.write("real.csv", "old");
  const fs::perms mine = fs::perms::owner_read | fs::perms::owner_write;
  fs::permissions(folder.file("real.csv"), mine);
  fs::create_symlink("real.csv", folder.file("link.csv"));
  ASSERT_FALSE(writeCsvFile(MemoryDataSet(storeOf("a\n1\n")), folder.file("link.csv")));
  EXPECT_TRUE(fs::is_symlink(folder.file("link.csv")));
  EXPECT_EQ(folder.read("real.csv"), "a\n1\n");
  EXPECT_EQ(fs::status(folder.file("real.csv")).permissions(), mine);
}

}  // namespace
}  // namespace tessera
