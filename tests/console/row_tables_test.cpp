// Rows arranged as trees and groups, and what the row operations make of them.

#include <gtest/gtest.h>
#include <sstream>

#include "console/scratch_folder.h"
#include "console/text_diff.h"
#include "tools/tessera/console.h"

namespace tessera {
namespace {

// Commands with ";" between them, and what they gave in short: values, errors, the focus row, then the rows
// on the page as ROW:LEVEL with "-" behind an open and "+" behind a closed one, and the selected rows in
// brackets.
struct RowCase {
  const char* form;
  const char* commands;
  const char* result;
};

std::string shortened(const std::string& line) {
  static constexpr const char* marks[] = {"", "", "-", "+"};
  std::istringstream words(line);
  std::string word, row, skipped, level;
  std::size_t state = 0;
  words >> word >> row >> skipped >> level >> skipped >> state;
  if (word == "row") return row + ":" + level + marks[state];
  if (word == "focus") return "@" + row;
  if (word == "selected") return "[" + row + "]";
  if (word == "=") return line.substr(2);
  if (line.starts_with("! OnError(")) return "error " + line.substr(10, line.find(',') - 10);
  return word == "error:" || word == "open" ? word : "";
}

std::string shortReplies(const RowCase& row) {
  std::string commands = row.commands + std::string("; show");
  for (std::size_t at; (at = commands.find("; ")) != std::string::npos;) commands.replace(at, 2, "\n");
  std::istringstream in(commands);
  std::ostringstream out;
  Console(std::move(*openForm(row.form)), out, {}).run(in);
  std::string replies;
  for (const std::string& line : splitLines(out.str())) {
    const std::string word = shortened(line);
    if (!word.empty()) replies += (replies.empty() ? "" : " ") + word;
  }
  return replies;
}

TEST(RowTables, AreAsTold) {
  const RowCase table[] = {
      // How rows are arranged.
      {"tree.xml", R"()", "@1 1:1- 2:2- 3:3 4:3 5:2 6:1- 7:2"},
      {"tree.xml",
       R"(data staff SetTextByName 4 LEVEL 1; data staff SetTextByName 5 LEVEL 2; data staff SetTextByName 6 LEVEL 3; data staff SetTextByName 7 LEVEL 1; put DataID none; put DataID staff)",
       "@1 1:1- 2:2- 3:3 4:1- 5:2- 6:3 7:1"},
      {"tree.xml", R"(data staff SetTextByName 2 LEVEL 3; put DataID none; put DataID staff)",
       "error 9 @1 1:1"},
      {"tree.xml", R"(data staff SetTextByName 1 LEVEL 2; put DataID none; put DataID staff)", "error 9 @-"},
      {"tree.xml", R"(data staff SetTextByName 1 LEVEL 0; put DataID none; put DataID staff)", "error 9 @-"},
      {"tree.xml", R"(data staff SetTextByName 6 LEVEL ""; put DataID none; put DataID staff)",
       "error 9 @1 1:1- 2:2- 3:3 4:3 5:2"},
      {"tree.xml",
       R"(put ColumnInfo "<GRID><COLUMN id='n' refcolid='NAME'><HEADER left='0' right='9' top='0' bottom='20'/><VIEW left='0' right='9' top='0' bottom='20'/></COLUMN></GRID>")",
       "error 6 @1 1:1- 2:2- 3:3 4:3 5:2 6:1- 7:2"},
      {"tree.xml",
       R"(put ColumnInfo "<GRID><COLUMN id='n' refcolid='NAME'><HEADER left='0' right='9' top='0' bottom='20'/><VIEW left='0' right='9' top='0' bottom='20'/><TREE type='2' levelcolumn='DEPTH'/></COLUMN></GRID>")",
       "error 8 @1 1:1- 2:2- 3:3 4:3 5:2 6:1- 7:2"},
      {"tree.xml",
       R"(put ColumnInfo "<GRID><COLUMN id='n' refcolid='NAME'><HEADER left='0' right='9' top='0' bottom='20'/><VIEW left='0' right='9' top='0' bottom='20'/><TREE type='1'/></COLUMN></GRID>")",
       "error 10 @1 1:1- 2:2- 3:3 4:3 5:2 6:1- 7:2"},
      {"tree.xml",
       R"(put ColumnInfo "<GRID><COLUMN id='n' refcolid='NAME'><HEADER left='0' right='9' top='0' bottom='20'/><VIEW left='0' right='9' top='0' bottom='20'/><TREE type='2' expand='false'/></COLUMN></GRID>")",
       "@1 1:1+ 6:1+"},
      {"tree.xml",
       R"(put ColumnInfo "<GRID><COLUMN id='n' refcolid='NAME'><HEADER left='0' right='9' top='0' bottom='20'/><VIEW left='0' right='9' top='0' bottom='20'/><TREE type='0'/></COLUMN></GRID>")",
       "@1 1:0 2:0 3:0 4:0 5:0 6:0 7:0"},
      {"tree.xml",
       R"(put ColumnInfo "<GRID><COLUMN id='n' refcolid='NAME'><HEADER left='0' right='9' top='0' bottom='20'/><VIEW left='0' right='9' top='0' bottom='20'/><TREE/></COLUMN><COLUMN id='m'><VIEW left='9' right='19' top='0' bottom='20'/><TREE/></COLUMN></GRID>")",
       "error 5 @1 1:1- 2:2- 3:3 4:3 5:2 6:1- 7:2"},
      {"groups.xml",
       R"(get GetText key 6 4; get GetText shop 3 4; get GetText qty 6 4; get GetText shop 1 4; hit 36 29)",
       R"("North" "b" "sum          6" "" "4 6 key" @1 6:1- 3:2- 1:3 2:3 5:2- 4:3 10:1- 9:2- 7:3 8:3)"},
      {"groups.xml", R"(put ColumnPosition shop; put RowPosition 6; call ActivateEdit; edit)",
       R"("closed" @6 6:1- 3:2- 1:3 2:3 5:2- 4:3 10:1- 9:2- 7:3 8:3)"},
      {"groups.xml", R"(data shops SetTextByName 4 CITY Bonn; data shops CommitRows)",
       "@1 5:1- 4:2- 1:3 2:3 3:3 9:1- 8:2- 6:3 7:3"},
      {"groups.xml", R"(data shops InsertRow 1; data shops SetTextByName 1 REGION East)",
       "1 @1 6:1- 3:2- 1:3 2:3 5:2- 4:3 10:1- 9:2- 7:3 8:3"},
      {"groups.xml",
       R"(data shops InsertRow 1; data shops SetTextByName 1 REGION East; data shops CommitRows)",
       "1 @1 3:1- 2:2- 1:3 9:1- 6:2- 4:3 5:3 8:2- 7:3 13:1- 12:2- 10:3 11:3"},
      {"kept.rows.xml",
       R"(put DataID levels; put ColumnInfo @groups.columns.xml; data levels SetTextByName 5 LEVEL 7; data levels SetTextByName 3 LEVEL 2; put DataID none; put DataID levels)",
       "error 9 @- 3:1 6:1"},
      {"kept.rows.xml",
       R"(put DataID levels; put ColumnInfo @groups.columns.xml; data levels SetTextByName 6 LEVEL 0; put DataID none; put DataID levels)",
       "error 9 @-"},
      // Insert in a tree: behind, before, first, last, first child.
      {"tree.xml",
       R"(call Insert 2 0 "NAME::Behind, QTY::10 ,broken,a::b::c,LEVEL::1"; data staff GetText 5 1; data staff GetText 5 2; data staff GetText 5 3)",
       R"("Behind" "2" "10" @5 1:1- 2:2- 3:3 4:3 5:2 6:2 7:1- 8:2)"},
      {"tree.xml", R"(call Insert 5 1)", "@5 1:1- 2:2- 3:3 4:3 5:2 6:2 7:1- 8:2"},
      {"tree.xml", R"(call Insert -9 2; data staff GetText 1 2)",
       R"("1" @1 1:1 2:1- 3:2- 4:3 5:3 6:2 7:1- 8:2)"},
      {"tree.xml", R"(call Insert 99 3; data staff GetText 8 2)",
       R"("1" @8 1:1- 2:2- 3:3 4:3 5:2 6:1- 7:2 8:1)"},
      {"tree.xml", R"(call Insert 3 4)", "@4 1:1- 2:2- 3:3- 4:4 5:3 6:2 7:1- 8:2"},
      {"tree.xml", R"(call Collapse 2; call Insert 1 4)", "@2 1:1- 2:2 3:2+ 6:2 7:1- 8:2"},
      {"tree.xml", R"(call Collapse 2; call Insert 2 4)", "@3 1:1- 2:2- 3:3 4:3 5:3 6:2 7:1- 8:2"},
      {"tree.xml", R"(call Insert -1 0; call Insert 1 5; call Insert 1 -1; call Insert 99 0)",
       "@1 1:1- 2:2- 3:3 4:3 5:2 6:1- 7:2"},
      {"tree.xml",
       R"(put ColumnPosition qty; put RowPosition 6; call ActivateEdit; type 77; call Insert 1 1; data staff GetText 7 3)",
       R"("77" @1 1:1 2:1- 3:2- 4:3 5:3 6:2 7:1- 8:2)"},
      {"tree.xml",
       R"(put ColumnPosition qty; call ActivateEdit; on OnExit 1; call Insert 1 1; call Delete 1; call Move 1 6 0; edit)",
       "open @1 1:1- 2:2- 3:3 4:3 5:2 6:1- 7:2"},
      // Delete in a tree.
      {"tree.xml", R"(put RowPosition 7; call Delete 2; data staff GetRowCount)", "4 @4 1:1- 2:2 3:1- 4:2"},
      {"tree.xml", R"(call Collapse 1; call Delete 4)", "@1 1:1+ 5:1- 6:2"},
      {"tree.xml", R"(call Delete 7; call Delete 6; call Delete 99; call Delete -1)",
       "@1 1:1- 2:2- 3:3 4:3 5:2"},
      {"tree.xml", R"(put RowPosition 2; call Delete 0)", "@2 1:1- 2:2 3:1- 4:2"},
      {"tree.xml",
       R"(put RowPosition 2; put ColumnPosition ""; mouse down 8 70 ctrl; mouse down 8 130 ctrl; call Delete 0; data staff GetRowCount; data staff GetRowSelected 3)",
       "2 0 @- 1:1- 2:2 [2]"},
      {"tree.xml", R"(call Delete 1; call Delete 1; call Insert 0 3; data staff GetText 1 2)",
       R"("1" @1 1:1)"},
      // Move in a tree.
      {"tree.xml",
       R"(call Move 2 6 0; data staff GetText 5 1; data staff GetText 6 2; data staff GetCurrentRow)",
       R"("Sales" "2" 5 @5 1:1- 2:2 3:1- 4:2 5:1- 6:2 7:2)"},
      {"tree.xml", R"(call Move 6 2 4; data staff GetText 3 1; data staff GetText 4 2)",
       R"("Audit" "4" @3 1:1- 2:2- 3:3- 4:4 5:3 6:3 7:2)"},
      {"tree.xml", R"(call Move 1 1 0; call Move 1 3 4; call Move 5 1 1; call Move 5 99 0; call Move 99 1 0)",
       "@1 1:1- 2:2- 3:3 4:3 5:2 6:1- 7:2"},
      {"tree.xml", R"(put RowPosition 5; call Move 0 1 4; data staff GetText 2 1)",
       R"("Works" @2 1:1- 2:2 3:2- 4:3 5:3 6:1- 7:2)"},
      {"tree.xml",
       R"(put RowPosition 3; put ColumnPosition ""; mouse down 8 110 ctrl; call Move 0 6 0; data staff GetText 6 1; data staff GetText 7 1)",
       R"("Works" "North" @- 1:1- 2:2- 3:3 4:1- 5:2 6:1 7:1 [6])"},
      {"tree.xml",
       R"(put RowPosition 1; put ColumnPosition ""; mouse down 8 70 ctrl; call Move 0 7 0; data staff GetText 4 1)",
       R"("Sales" @- 1:1- 2:2 3:2- 4:3- 5:4 6:4 7:3 [3])"},
      // Plain.
      {"orders.xml",
       R"(call Insert 1 0 "NAME::Ada, CITY::Ulm"; data orders GetText 2 1; data orders GetText 2 2)",
       R"("Ada" "Ulm" @2 1:0 2:0 3:0 4:0 5:0 6:0)"},
      {"orders.xml",
       R"(call Insert 2 1; call Insert 0 2; call Insert 99 3 "NAME::Last"; data orders GetText 9 1)",
       R"("Last" @9 5:0 6:0 7:0 8:0 9:0)"},
      {"orders.xml",
       R"(call Insert 1 4; call Insert -1 0; call Move 1 3 0; call Expand 1; call CollapseAll; data orders GetRowCount)",
       "6 @1 1:0 2:0 3:0 4:0 5:0 6:0"},
      {"orders.xml", R"(put RowPosition 6; call Delete 1; data orders GetText 1 1)",
       R"("Bert" @5 1:0 2:0 3:0 4:0 5:0)"},
      {"orders.xml",
       R"(put RowPosition 3; put ColumnPosition ""; mouse down 8 30 ctrl; call Delete 0; data orders GetText 1 1; data orders GetRowCount)",
       R"("Bert" 4 @- 1:0 2:0 3:0 4:0 [1])"},
      {"kept.xml", R"(call Delete 2; data orders GetSysStatus 2; call Insert 2 0; call Delete 3)",
       "2 @3 1:0 2:0 3:0 4:0 5:0 6:0"},
      // Groups.
      {"groups.xml",
       R"(call Insert 1 0 "SHOP::z,CITY::Else"; data shops GetText 2 2; data shops GetText 2 3)",
       R"("Bonn" "z" @2 7:1- 4:2- 1:3 2:3 3:3 6:2- 5:3 11:1- 10:2- 8:3 9:3)"},
      {"groups.xml", R"(call Insert 4 1)", "@4 7:1- 3:2- 1:3 2:3 6:2- 4:3 5:3 11:1- 10:2- 8:3 9:3"},
      {"groups.xml",
       R"(call Insert 3 0; data shops GetText 4 1; data shops GetText 4 2; call Insert 5 1; data shops GetText 4 2)",
       R"("North" "New Group" "New Group!" @4 10:1- 3:2- 1:3 2:3 5:2- 4:3 7:2- 6:3 9:2- 8:3 14:1- 13:2- 11:3 12:3)"},
      {"groups.xml", R"(call Insert 3 1 "CITY::Bonn"; data shops GetText 1 2)",
       R"("Bonn!" @1 8:1- 2:2- 1:3 5:2- 3:3 4:3 7:2- 6:3 12:1- 11:2- 9:3 10:3)"},
      {"groups.xml",
       R"(call Collapse 3; call Insert 6 0 "REGION::East,CITY::Berlin"; data shops GetText 7 1)",
       R"("East" @7 6:1- 3:2+ 5:2- 4:3 9:1- 8:2- 7:3 13:1- 12:2- 10:3 11:3)"},
      {"groups.xml",
       R"(call Insert 1 2; call Insert 1 3; call Insert 1 4; call Insert 99 0; data shops GetRowCount)",
       "10 @1 6:1- 3:2- 1:3 2:3 5:2- 4:3 10:1- 9:2- 7:3 8:3"},
      {"groups.xml", R"(call Delete 4; call Collapse 3; call Delete 6)", "@3 4:1- 3:2+ 7:1- 6:2- 5:3"},
      {"groups.xml", R"(call Delete 6; call Delete 4; data shops GetRowCount)", "0 @-"},
      {"groups.xml",
       R"(call Move 1 7 0; data shops GetText 7 3; data shops GetCurrentRow; call Move 3 1 0; call Move 1 3 0)",
       R"("a" 7 @2 4:1- 3:2- 1:3 2:3 9:1- 8:2- 5:3 6:3 7:3)"},
      {"groups.xml", R"(call Move 4 7 0; data shops CommitRows)",
       "@8 4:1- 3:2- 1:3 2:3 7:1- 6:2- 5:3 10:1- 9:2- 8:3 13:1- 12:2- 11:3"},
      {"groups.xml",
       R"(put RowPosition 1; put ColumnPosition ""; mouse down 8 90 ctrl; mouse down 8 50 ctrl; call Delete 0)",
       "@- 3:1- 2:2- 1:3 7:1- 6:2- 4:3 5:3 [1]"},
      {"kept.rows.xml",
       R"(put DataID numbers; put ColumnInfo "<GRID><COLUMN id='n' refcolid='NAME'><HEADER left='0' right='9' top='0' bottom='20'/><VIEW left='0' right='9' top='0' bottom='20'/><TREE type='1'/></COLUMN></GRID>"; call Insert 2 0; data numbers GetText 3 1; call Insert 4 1; data numbers GetText 3 1)",
       R"(error 8 "6" "7" @3 2:1- 1:2 4:1- 3:2 6:1- 5:2 8:1- 7:2)"},
      // Deleted rows that are kept, and sums that came with the data.
      {"kept.rows.xml",
       R"(call Delete 2; data staff GetSysStatus 2; data staff GetSysStatus 4; data staff GetSysStatus 5)",
       "2 2 0 @1 1:1- 2:2- 3:3 4:3 5:2 6:1- 7:2"},
      {"kept.rows.xml", R"(call Insert 2 4; call Insert 3 4; call Delete 3)",
       "@3 1:1- 2:2- 3:3 4:3 5:2 6:1- 7:2"},
      {"kept.rows.xml",
       R"(call Insert 7 4; call Move 6 1 0; data staff GetSysStatus 6; data staff GetSysStatus 9; data staff GetCurrentRow)",
       "1 2 6 @6 1:1- 2:2- 3:3 4:3 5:2 6:1- 7:2- 8:3 9:1- 10:2"},
      {"kept.rows.xml", R"(put DataID shops; call Delete 1; call Insert 1 3; data shops GetRowCount)",
       "error 8 10 @1 1:1- 2:2- 3:3 4:3 5:2 6:1- 7:2"},
      {"kept.rows.xml",
       R"(put DataID shops; put ColumnInfo @groups.columns.xml; call Delete 3; data shops GetSysStatus 2; call Insert 3 0; call Delete 5; call Move 4 7 0; data shops GetSysStatus 4)",
       "error 8 2 2 @8 6:1- 3:2- 1:3 2:3 5:2- 4:3 11:1- 10:2- 7:3 8:3"},
      {"kept.rows.xml",
       R"(put DataID levels; put ColumnInfo @groups.columns.xml; call Insert 3 0; call Insert 6 1; call Insert 1 0 "SHOP::n"; call Delete 5; call Delete 5)",
       "error 9 @2 5:1- 4:2- 1:3 2:3 3:3"},
  };
  const ScratchFolder folder;
  for (const RowCase& row : table) EXPECT_EQ(shortReplies(row), row.result) << row.commands;
}

}  // namespace
}  // namespace tessera
