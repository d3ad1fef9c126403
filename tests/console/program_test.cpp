#include "tools/tessera/program.h"

#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sstream>

#include "backends/native/files.h"
#include "backends/native/pixbuf_picture_loader.h"
#include "console/scratch_folder.h"
#include "tools/tessera/event_handlers.h"
#include "tools/tessera/form_host.h"
#include "tools/tessera/grid_report.h"

namespace tessera {
namespace {

struct Outcome {
  int code;
  std::string out;
  std::string err;
};

Outcome run(const std::vector<std::string>& arguments, const std::string& input = "") {
  std::istringstream in(input);
  std::ostringstream out;
  std::ostringstream err;
  const int code = runProgram(arguments, {in, out, err});
  return {code, out.str(), err.str()};
}

BitmapRef readPicture(const std::string& path) {
  const FileResult bytes = readFile(path);
  const auto* content = std::get_if<FileBytes>(&bytes);
  return content ? PixbufPictureLoader().load(*content) : nullptr;
}

void makeDatabase(const std::string& path, const std::string& sql) {
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(database);
}

// One message of one line, and nothing else.
TEST(Program, RefusesWhatItCannotRead) {
  const ScratchFolder folder;
  folder.write("noform.xml", "<form>\n<grid></form>");
  folder.write("broken.csv", "A,B\n1\n");
  makeDatabase("tables.sqlite", "CREATE TABLE city(name TEXT)");
  makeDatabase("bare.sqlite", "VACUUM");
  const std::vector<std::string> rows[] = {
      {},
      {"paint"},
      {"--fast"},
      {"render"},
      {"render", "orders.xml"},
      {"render", "orders.xml", "out.png", "--depth", "3"},
      {"render", "orders.xml", "out.png", "--width", "0"},
      {"render", "orders.xml", "out.png", "--width", "broad"},
      {"render", "gone.xml", "out.png"},
      {"render", "noform.xml", "out.png"},
      {"render", "broken.csv", "out.png"},
      {"render", "tables.sqlite:street", "out.png"},
      {"render", "bare.sqlite", "out.png"},
      {"render", "orders.xml", "no/such/folder/out.png"},
      {"console", "gone.xml"},
      {"console", "orders.xml", "more"},
  };
  for (const auto& arguments : rows) {
    std::string line;
    for (const std::string& argument : arguments) line += " " + argument;
    const Outcome outcome = run(arguments, "show\n");
    EXPECT_EQ(outcome.code, 2) << line;
    EXPECT_EQ(outcome.out, "") << line;
    EXPECT_TRUE(outcome.err.starts_with("tessera: ")) << line << "\n" << outcome.err;
    EXPECT_EQ(outcome.err.find('\n'), outcome.err.size() - 1) << line << "\n" << outcome.err;
    EXPECT_FALSE(std::filesystem::exists("out.png")) << line;
  }
}

TEST(Program, TellsItsVersionAndUse) {
  const Outcome version = run({"--version"});
  EXPECT_EQ(version.code, 0);
  EXPECT_EQ(version.out, "tessera " TESSERA_VERSION "\n");
  for (const auto& arguments : std::vector<std::vector<std::string>>{{"--help"}, {"render", "--help"}}) {
    const Outcome help = run(arguments);
    EXPECT_EQ(help.code, 0);
    EXPECT_NE(help.out.find("render"), std::string::npos);
    EXPECT_EQ(help.err, "");
  }
}

TEST(Render, WritesAPictureOfTheSizeAskedFor) {
  struct Row {
    std::vector<std::string> options;
    std::int32_t width;
    std::int32_t height;
  };
  const ScratchFolder folder;
  const Row rows[] = {
      {{}, 320, 121}, {{"--width", "200"}, 200, 121}, {{"--width", "64", "--height", "48"}, 64, 48}};
  for (const Row& row : rows) {
    std::vector<std::string> arguments = {"render", "orders.xml", "out.png"};
    arguments.insert(arguments.end(), row.options.begin(), row.options.end());
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    const BitmapRef picture = readPicture("out.png");
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, row.width);
    EXPECT_EQ(picture->height, row.height);
  }
}

// The picture shows what could be read, and the fault is told.
TEST(Render, WarnsOfFaultsInTheConfiguration) {
  const ScratchFolder folder;
  const Outcome outcome = run({"render", "faulty.xml", "out.png"});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.err, "tessera: Parsing Error, MenuInfo\ntessera: Parsing Error, ColumnInfo\n");
  EXPECT_TRUE(readPicture("out.png"));
}

TEST(Console, EndsAStrictSessionAtTheFirstError) {
  struct Row {
    std::vector<std::string> options;
    std::string input;
    int code;
    std::string out;
  };
  const ScratchFolder folder;
  const Row rows[] = {
      {{}, "get Draw\nfly\nget Sort\n", 0, "= true\nerror: there is no command \"fly\"\n= true\n"},
      {{"--strict"}, "get Draw\nfly\nget Sort\n", 1, "= true\nerror: there is no command \"fly\"\n"},
      {{"--strict"}, "get Draw\nget Sort", 0, "= true\n= true\n"},
      {{"--strict"}, "get Draw\nquit\nfly\n", 0, "= true\nok\n"},
      {{"--echo"}, "# remark\n\n  \nget Draw\r\n", 0, "> get Draw\n= true\n"},
      {{"--strict"},
       "on OnError do fly\nput MenuInfo x\nget Draw\n",
       1,
       "ok\n! OnError(3, \"Parsing Error, MenuInfo\")\n  error: there is no command \"fly\"\n"},
  };
  for (const Row& row : rows) {
    std::vector<std::string> arguments = {"console", "orders.xml"};
    arguments.insert(arguments.end(), row.options.begin(), row.options.end());
    const Outcome outcome = run(arguments, row.input);
    EXPECT_EQ(outcome.code, row.code) << row.input;
    EXPECT_EQ(outcome.out, row.out) << row.input;
  }
}

TEST(Eval, TriesAnExpression) {
  struct Row {
    std::vector<std::string> arguments;
    int code;
    std::string out;
    std::string err;
  };
  const ScratchFolder folder;
  folder.write("rows.csv", "NAME,AMOUNT\nKim,120\nLee,80\n");
  const Row rows[] = {
      {{"1+2*3"}, 0, "7\n", ""},
      {{"UPPER(\"a\")+\"b\""}, 0, "\"Ab\"\n", ""},
      {{"IIF(AMOUNT>100,NAME,\"-\")", "--form", "rows.csv"}, 0, "\"Kim\"\n", ""},
      {{"IIF(amount>100,name,\"-\")", "--form", "rows.csv", "--row", "2"}, 0, "\"-\"\n", ""},
      {{"AMOUNT"}, 2, "", "tessera: Variable 'AMOUNT' is not found.\n"},
      {{"1/0"}, 0, "1\n", ""},  // as the language has it
      {{"LOG(0)"}, 2, "", "tessera: LOG(): Zero or negative used as argument.\n"},
  };
  for (const Row& row : rows) {
    std::vector<std::string> arguments = {"eval"};
    arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.code, row.code) << row.arguments.front();
    EXPECT_EQ(outcome.out, row.out) << row.arguments.front();
    EXPECT_EQ(outcome.err, row.err) << row.arguments.front();
  }
}

// A handler whose command raises its own event again is cut off, and answers all the same.
TEST(EventHandlers, EndHandlersWithoutEnd) {
  std::ostringstream out;
  Transcript transcript(out, false);
  EventHandlers* handlers = nullptr;
  int runs = 0;
  XValue answer;
  EventHandlers subject(transcript, [&](const std::string&) {
    ++runs;
    handlers->Invoke(EventId::OnFirstUp, {}, answer);
  });
  handlers = &subject;
  subject.runCommand(EventId::OnFirstUp, "again");
  subject.answer(EventId::OnFirstUp, XValue::ofBool(false));
  subject.Invoke(EventId::OnFirstUp, {}, answer);
  EXPECT_EQ(runs, EventHandlers::maxDepth);
  EXPECT_EQ(transcript.depth(), 0);
  EXPECT_EQ(answer, XValue::ofBool(false));
}

// The made-up form for data that has none.
TEST(MadeUpForm, ShowsEveryFieldOfTheFirstTable) {
  const ScratchFolder folder;
  makeDatabase("shop.sqlite",
               "CREATE TABLE city(name TEXT, people INTEGER, area REAL);"
               "INSERT INTO city VALUES('Bonn', 336465, 141.06), ('Mainz', 222889, 97.73);"
               "CREATE TABLE street(\"@a<b>'c'&\"\"d\" TEXT); INSERT INTO street VALUES('x');");
  const std::string questions =
      "get Sort\nget Resize\nget CountColumn 1\nget GetColumnID 0\nget GetText people 2\ndata data "
      "GetRowCount\n";
  const std::string city = "= true\n= 1\n= 3\n= \"name\"\n= \"222889\"\n= 2\n";
  EXPECT_EQ(run({"console", "shop.sqlite"}, questions).out, city);
  EXPECT_EQ(run({"console", "shop.sqlite:city"}, questions).out, city);
  // A name full of marks survives the way through the column text.
  const Outcome street =
      run({"console", "shop.sqlite:street"}, "get GetColumnID 0\nget GetText \"@a<b>'c'&\\\"d\" 1\n");
  EXPECT_EQ(street.out, "= \"@a<b>'c'&\\\"d\"\n= \"x\"\n");
}

TEST(MadeUpForm, FitsWidthsToTheContent) {
  const ScratchFolder folder;
  folder.write("wide.csv", "A,B,C\nx,some text of a fair length,1\n,\"" + std::string(400, 'w') + "\",22\n");
  folder.write("short.csv", "A,B,C\nx,some text of a fair length,1\n");
  const auto widths = [](const std::string& file) {
    std::vector<std::int32_t> result;
    std::istringstream lines(run({"console", file}, "columns\n").out);
    for (std::string line; std::getline(lines, line);) {
      std::array<int, 4> edges{};
      if (std::sscanf(line.c_str(), "%*s header %d,%d,%d,%d", &edges[0], &edges[1], &edges[2], &edges[3]) ==
          4) {
        result.push_back(edges[2] - edges[0]);
      }
    }
    return result;
  };
  const auto wide = widths("wide.csv");
  const auto narrow = widths("short.csv");
  ASSERT_EQ(wide.size(), 3u);
  ASSERT_EQ(narrow.size(), 3u);
  EXPECT_EQ(wide[0], 32);
  EXPECT_EQ(wide[1], 400);
  EXPECT_EQ(narrow[0], wide[0]);
  EXPECT_GT(narrow[1], 120);
  EXPECT_LT(narrow[1], 220);
}

}  // namespace
}  // namespace tessera
