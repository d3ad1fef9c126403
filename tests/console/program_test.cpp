#include "tools/tessera/program.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sstream>

#include "backends/native/files.h"
#include "backends/native/pixbuf_picture_loader.h"
#include "console/scratch_folder.h"
#include "tools/tessera/commands.h"
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
  const std::vector<std::string> rows[] = {{},
                                           {"paint"},
                                           {"render", "orders.xml"},
                                           {"render", "orders.xml", "out.png", "--width", "0"},
                                           {"render", "noform.xml", "out.png"},
                                           {"render", "broken.csv", "out.png"},
                                           {"render", "tables.sqlite:street", "out.png"},
                                           {"render", "bare.sqlite", "out.png"},
                                           {"render", "orders.xml", "no/such/folder/out.png"},
                                           {"console", "gone.xml"},
                                           {"console", "orders.xml", "more"}};
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
  EXPECT_EQ(run({"--version"}).out, "tessera " TESSERA_VERSION "\n");
  const Outcome help = run({"render", "--help"});
  EXPECT_EQ(help.code, 0);
  EXPECT_NE(help.out.find("--width"), std::string::npos);
}

// Of the size asked for. It shows what could be read, and the faults are told.
TEST(Render, WritesAPictureAndWarnsOfFaults) {
  struct Row {
    std::vector<std::string> arguments;
    std::int32_t width, height;
    const char* err;
  };
  const ScratchFolder folder;
  const Row rows[] = {{{"render", "orders.xml", "out.png"}, 320, 121, ""},
                      {{"render", "orders.xml", "out.png", "--width", "64", "--height", "48"}, 64, 48, ""},
                      {{"render", "faulty.xml", "out.png", "--width", "9", "--height", "9"},
                       9,
                       9,
                       "tessera: Parsing Error, MenuInfo\ntessera: Parsing Error, ColumnInfo\n"}};
  for (const Row& row : rows) {
    const Outcome outcome = run(row.arguments);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.err, row.err);
    const FileResult bytes = readFile("out.png");
    const BitmapRef picture = decodePicture(std::get<FileBytes>(bytes));
    ASSERT_TRUE(picture);
    EXPECT_TRUE(picture->width == row.width && picture->height == row.height) << row.width;
  }
}

TEST(Console, EndsAStrictSessionAtTheFirstErrorAndEvalTriesAnExpression) {
  struct Row {
    std::vector<std::string> arguments;
    std::string input;
    int code;
    std::string out, err;
  };
  const ScratchFolder folder;
  folder.write("rows.csv", "NAME,AMOUNT\nKim,120\nLee,80\n");
  const std::vector<std::string> console = {"console", "orders.xml"},
                                 strict = {"console", "orders.xml", "--strict"};
  const std::string choice = "IIF(amount>100,name,\"-\")", error = "error: there is no command \"fly\"\n";
  const Row rows[] = {
      {console, "get Draw\nfly\nget Sort\n", 0, "= true\n" + error + "= true\n", ""},
      {strict, "get Draw\nfly\nget Sort\n", 1, "= true\n" + error, ""},
      {strict, "get Draw\nquit\nfly\n", 0, "= true\nok\n", ""},
      {{"console", "orders.xml", "--echo"}, "# remark\n\n  \nget Draw\r\n", 0, "> get Draw\n= true\n", ""},
      {strict, "on OnError do fly\nput MenuInfo x\nget Draw\n", 1,
       "ok\n! OnError(3, \"Parsing Error, MenuInfo\")\n  " + error, ""},
      {{"eval", choice, "--form", "rows.csv"}, "", 0, "\"Kim\"\n", ""},
      {{"eval", choice, "--form", "rows.csv", "--row", "2"}, "", 0, "\"-\"\n", ""},
      {{"eval", "AMOUNT"}, "", 2, "", "error 5 Variable 'AMOUNT' is not found.\n"},
      {{"eval", "LOG(0)"}, "", 2, "", "error 11 LOG(): Zero or negative used as argument.\n"}};
  for (const Row& row : rows) {
    const Outcome outcome = run(row.arguments, row.input);
    EXPECT_EQ(outcome.code, row.code) << row.input << row.arguments[1];
    EXPECT_EQ(outcome.out, row.out) << row.input << row.arguments[1];
    EXPECT_EQ(outcome.err, row.err) << row.input << row.arguments[1];
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
  const auto right = [](const std::string& file, int column) {
    const std::string told = run({"console", file}, "columns\n").out;
    int left = 0, edge = 0;
    std::size_t line = 0;
    for (int i = 0; i < column; ++i) line = told.find('\n', line) + 1;
    std::sscanf(told.c_str() + line, "%*s header %d,%*d,%d", &left, &edge);
    return edge - left;
  };
  EXPECT_EQ(right("wide.csv", 0), 32);
  EXPECT_EQ(right("wide.csv", 1), 400);
  EXPECT_EQ(right("short.csv", 0), 32);
  EXPECT_NEAR(right("short.csv", 1), 170, 50);
}

// At the end of every command, and earlier where a handler says so.
TEST(PostedWork, RunsBeforeTheReply) {
  auto opened = openForm(sourcePath("examples/editors.xml"));
  ASSERT_TRUE(opened) << opened.error().message();
  std::ostringstream out;
  Transcript transcript(out, false);
  CommandContext* present = nullptr;
  EventHandlers handlers(transcript,
                         [&](const std::string& line) { out << runCommandLine(*present, line).last << ' '; });
  FormHost host(std::move(*opened), &handlers);
  CommandContext context{host, handlers};
  present = &context;
  const auto post = [&] { host.desktop().dispatcher.post([&out] { out << "posted "; }); };
  runCommandLine(context, "on OnSelChange do wait");
  out.str("");
  post();
  runCommandLine(context, "get RowPosition");
  EXPECT_EQ(out.str(), "posted ");
  post();
  runCommandLine(context, "put RowPosition 2");
  EXPECT_EQ(out.str().substr(7), "! OnSelChange(\"job\", 2)\nposted ok ! OnSelChanged(\"job\", 2)\n");
}

}  // namespace
}  // namespace tessera
