// Edits, open lists, the selection and its flags while the data set changes its rows.

#include "console/scratch_folder.h"
#include "console/session.h"

namespace tessera {
namespace {

using Act = std::function<void(MemoryDataSet&)>;

Act remove(std::int32_t row) {
  return [row](MemoryDataSet& rows) { rows.DeleteRow(row); };
}
Act insert(std::int32_t row) {
  return [row](MemoryDataSet& rows) { rows.InsertRow(row); };
}
Act moveTo(std::int32_t row) {
  return [row](MemoryDataSet& rows) { rows.SetCurrentRow(row); };
}
Act tell(std::int32_t row) {
  return [row](MemoryDataSet& rows) { rows.notifier().currentRowChanged(row); };
}
// What stands behind row 2 is gone, the data set says.
void cut(MemoryDataSet& rows) { rows.notifier().rowsAdded(2); }
void sort(MemoryDataSet& rows) {
  rows.SetSortExpr(u"-TEXT");
  rows.ApplySort();
}

enum class Kind { Plain, Kept, Grouped };

// Four rows whose column TEXT holds their number, which b edits and c chooses for.
class MovingRows : public Session {
 public:
  explicit MovingRows(Kind kind = Kind::Plain) : Session("rows.xml") {
    if (kind == Kind::Kept) data()->setKeepDeleted(true);
    if (kind == Kind::Grouped) data()->setSubsumExpr("1:ROW");
    run("focus in");
  }
  void stand(std::int32_t row, const std::string& column) {
    run("put RowPosition " + std::to_string(row) + "; put ColumnPosition " + column);
  }
  std::string texts() const {
    std::string column;
    XString text;
    for (std::int32_t row = 1; row <= data()->rowCount(); ++row) {
      data()->GetText(row, 2, text);
      column += (row > 1 ? " " : "") + text.toUtf8();
    }
    return column;
  }
};

struct EditRow {
  const char* what;
  Kind kind;
  std::int32_t row;
  Act act;
  bool goesOn;
  const char* texts;
};

TEST(MovingRows, AnEditedTextFindsItsRow) {
  const ScratchFolder folder;
  const EditRow table[] = {
      {"a row above goes", Kind::Plain, 3, remove(1), false, "2 typed 4"},
      {"a row below goes", Kind::Plain, 3, remove(4), false, "1 2 typed"},
      {"the row goes", Kind::Plain, 3, remove(3), false, "1 2 4"},
      {"a row comes above", Kind::Plain, 3, insert(1), false, " 1 2 typed 4"},
      {"a row comes in its place", Kind::Plain, 3, insert(3), false, "1 2  typed 4"},
      {"a row comes below", Kind::Plain, 3, insert(4), false, "1 2 typed  4"},
      {"a kept row above", Kind::Kept, 3, remove(1), true, "1 2 typed 4"},
      {"the row, which is kept", Kind::Kept, 3, remove(3), true, "1 2 typed 4"},
      {"two rows above go at once", Kind::Grouped, 5, remove(1), false, "2  typed  4 "},
      {"two rows below go at once", Kind::Grouped, 3, remove(5), false, "1  typed  4 "},
      {"the row and its subtotal go", Kind::Grouped, 5, remove(5), false, "1  2  4 "},
      {"rows at the end", Kind::Plain, 3, [](MemoryDataSet& rows) { rows.appendRows(1); }, true,
       "1 2 typed 4 "},
      {"fewer rows", Kind::Plain, 3, cut, false, "1 2 3 4"},
      {"fewer rows behind it", Kind::Plain, 2, cut, true, "1 typed 3 4"},
      {"rows change places", Kind::Plain, 3, sort, false, "4 3 2 1"},
      {"the current row moves", Kind::Plain, 3, moveTo(1), false, "1 2 typed 4"},
      {"the current row is none", Kind::Plain, 3, tell(9), false, "1 2 typed 4"},
  };
  for (const EditRow& row : table) {
    SCOPED_TRACE(row.what);
    MovingRows grid(row.kind);
    grid.stand(row.row, "b");
    grid.run("type \"typed\"");
    row.act(*grid.data());
    EXPECT_EQ(grid.value("edit") != "\"closed\"", row.goesOn);
    if (row.goesOn) grid.run("key Enter");
    EXPECT_EQ(grid.texts(), row.texts);
  }
}

TEST(MovingRows, AChoiceFindsItsRow) {
  const ScratchFolder folder;
  const EditRow table[] = {
      {"a row above goes", Kind::Plain, 3, remove(1), true, "2 typed 4"},
      {"a row below goes", Kind::Plain, 3, remove(4), true, "1 2 typed"},
      {"the row goes", Kind::Plain, 3, remove(3), false, "1 2 4"},
      {"a row comes above", Kind::Plain, 3, insert(2), true, "1  2 typed 4"},
      {"a row comes in its place", Kind::Plain, 3, insert(3), true, "1 2  typed 4"},
      {"a kept row above", Kind::Kept, 3, remove(1), true, "1 2 typed 4"},
      {"the row, which is kept", Kind::Kept, 3, remove(3), true, "1 2 typed 4"},
      {"the rows are made anew", Kind::Grouped, 5, remove(1), false, "2  3  4 "},
      {"rows change places", Kind::Plain, 3, sort, false, "4 3 2 1"},
      {"fewer rows", Kind::Plain, 3, cut, false, "1 2 3 4"},
      {"fewer rows behind it", Kind::Plain, 2, cut, true, "1 typed 3 4"},
  };
  for (const EditRow& row : table) {
    SCOPED_TRACE(row.what);
    MovingRows grid(row.kind);
    grid.stand(row.row, "c");
    grid.run("key Enter");
    row.act(*grid.data());
    EXPECT_EQ(grid.value("list") != "\"closed\"", row.goesOn);
    if (row.goesOn) {
      EXPECT_TRUE(grid.run("key Enter").starts_with("! OnCloseUp"));
    }
    EXPECT_EQ(grid.texts(), row.texts);
  }
}

// The handler has the last word about the text, as long as its row can be told.
TEST(MovingRows, AHandlerOfOnExitTakesTheCellAway) {
  const ScratchFolder folder;
  struct Row {
    const char* act;
    const char* saved;    // when the answer is to save
    const char* dropped;  // when it is 1, which cannot keep an edit whose cell is gone, or 3
  };
  const Row table[] = {
      {"refresh", "1 typed 3 4", "1 2 3 4"},
      {"refresh; refresh", "1 typed 3 4", "1 2 3 4"},
      {"refresh; data rows DeleteRow 1", "typed 3 4", "2 3 4"},
      {"refresh; data rows InsertRow 1", " 1 typed 3 4", " 1 2 3 4"},
      {"refresh; data rows DeleteRow 2", "1 3 4", "1 3 4"},
      {"refresh; data rows SetSortExpr \"-TEXT\"; data rows ApplySort", "4 3 2 1", "4 3 2 1"},
      {"data rows SetSortExpr \"-TEXT\"; data rows ApplySort", "4 3 2 1", "4 3 2 1"},
      {"put DataID \"\"", "1 2 3 4", "1 2 3 4"},
      {"changed", "1 2 3 4", "1 2 3 4"},
  };
  for (const Row& row : table) {
    for (const int answer : {1, 2, 3}) {
      SCOPED_TRACE(row.act + std::to_string(answer));
      MovingRows grid;
      grid.stand(2, "b");
      grid.run("type \"typed\"; on OnExit " + std::to_string(answer) + "; on OnExit do act");
      grid.act = [&] {
        if (row.act == std::string("changed")) return grid.data()->notifier().dataChanged(0);
        grid.obey(row.act);
      };
      const std::string events = grid.run("put RowPosition 3");
      EXPECT_EQ(events.find("! OnSelChange("), std::string::npos) << "the move ends";
      EXPECT_EQ(grid.value("edit"), "\"closed\"");
      EXPECT_EQ(grid.texts(), answer == 2 ? row.saved : row.dropped);
    }
  }
}

// An edit that a handler begins is another one: the answer about the first must neither close nor write it.
TEST(MovingRows, AnAnswerCountsForItsOwnEditOnly) {
  const ScratchFolder folder;
  struct Row {
    const char* event;
    const char* key;
    int answer;
    const char* text;
  };
  for (const Row& row : {Row{"OnExit", "Enter", 2, "typed"},
                         {"OnExit", "Escape", 2, "1"},
                         {"OnExit", "Down", 2, "typed"},
                         {"OnExit", "Enter", 3, "1"},
                         {"OnExit", "Enter", 1, "1"},
                         {"OnKeyDown", "Enter", 2, "typed"}}) {
    SCOPED_TRACE(std::string(row.event) + row.key + std::to_string(row.answer));
    MovingRows grid;
    grid.run(
        "put ColumnInfo \"<GRID><COLUMN id='b' refcolid='TEXT'><HEADER right='60' bottom='20'/><VIEW "
        "right='60' "
        "bottom='20'/><CHILD type='edit'/></COLUMN></GRID>\"");
    grid.run("type \"typed\"; on OnExit " + std::to_string(row.answer) + "; on " + row.event + " do act");
    grid.act = [&] {
      grid.act = [] {};  // once
      grid.obey("refresh; call ActivateEdit; char \"other\"");
    };
    grid.run("key " + std::string(row.key));
    EXPECT_TRUE(grid.run("edit").find("\"other\"") != std::string::npos);
    EXPECT_TRUE(grid.run("show").starts_with("focus 1 b state 3\n"));
    EXPECT_EQ(grid.texts(), row.text + std::string(" 2 3 4"));
  }
}

TEST(MovingRows, WhatTheDataSetSaysOfItself) {
  const ScratchFolder folder;
  MovingRows grid;
  const auto picture = [&grid] {
    grid.run("paint");
    return grid.host().window()->canvas().snapshot();
  };
  const auto plain = picture();
  grid.run("mouse down 100 10; mouse up 100 10; key Up");
  EXPECT_NE(picture().pixels, plain.pixels) << "a mark";
  grid.data()->notifier().sortReset();
  EXPECT_EQ(picture().pixels, plain.pixels);
  for (int row = 4; row > 0; --row) grid.data()->DeleteRow(1);
  grid.data()->appendRows(4);
  EXPECT_TRUE(grid.run("show").starts_with("focus 1 a state 2\nrows 4 of 4"))
      << "the first rows fill the page";
  grid.data()->appendRows(5);
  EXPECT_TRUE(grid.run("bars").find("v range 1-9 page 4 at 1 shown") != std::string::npos);
  while (grid.data()->rowCount() > 2) grid.data()->DeleteRow(3);
  grid.data()->appendRows(2);
  grid.data()->SetCurrentRow(3);
  EXPECT_TRUE(grid.run("show").starts_with("focus 3 a state 2\nrows 4 of 4 top 1")) << "a page that had room";
  grid.data()->notifier().structureChanged(0);
  EXPECT_TRUE(grid.run("show").starts_with("focus 3 a state 2\nrows 4 of 4 top 1"));
  grid.data()->close();
  EXPECT_TRUE(grid.run("show").find("rows 4 of 4") != std::string::npos) << "the page stays until it changes";
  grid.run("refresh; put ColumnInfo \"<GRID/>\"; size 250 61; put RowPosition 2; call FitArrange");
  EXPECT_TRUE(grid.run("show").starts_with("focus 3 a state 2\nrows 3 of 4 top 1"));
}

TEST(MovingRows, FlagsAndSelectionFollowTheDataSet) {
  const ScratchFolder folder;
  struct Row {
    const char* what;
    const char* start;  // rows that are pressed in the indicator, the last one first; "b": a cell
    Act act;
    const char* selected;
    const char* flags;
  };
  const Row table[] = {
      {"the focus moves", "b", moveTo(2), "2", "2"},
      {"the focus stays", "b", moveTo(3), "3", "3"},
      {"the focus is nowhere", "b", tell(9), "", ""},
      {"a row comes above the focus", "b", insert(1), "1", "1"},
      {"a row comes below the focus", "b", insert(4), "4", "4"},
      {"a row above the focus goes", "b", remove(1), "2", "2"},
      {"the focus row goes", "b", remove(3), "3", "3"},
      {"the rows end above the focus", "b", cut, "2", "23"},
      {"the head moves", "3", moveTo(2), "2", "2"},
      {"one of several moves", "13", moveTo(4), "1,4", "14"},
      {"the head goes to a selected row", "13", moveTo(1), "1", "1"},
      {"no row", "13", tell(9), "", ""},
      {"a row comes above them", "134", insert(2), "1,2,4", "124"},
      {"a row comes in the head's place", "134", insert(4), "1,3,4", "134"},
      {"a row above them goes", "134", remove(2), "1,2,3", "123"},
      {"the head goes", "134", remove(4), "1,3", "13"},
      {"the rows end above some", "134", cut, "1", "134"},
      {"the rows end above all", "34", cut, "2", "234"},
  };
  for (const Row& row : table) {
    SCOPED_TRACE(row.what);
    MovingRows grid;
    grid.stand(3, "b");
    const std::string start = row.start == std::string("b") ? "" : row.start;
    for (const char& digit : start) {
      grid.run("mouse down 8 " + std::to_string(20 * (digit - '0') + 10) +
               (&digit != start.data() ? " ctrl" : ""));
    }
    row.act(*grid.data());
    EXPECT_EQ(grid.value("get SelectedRows"), '"' + std::string(row.selected) + '"');
    std::string flags;
    for (std::int32_t number = 1; number <= grid.data()->rowCount(); ++number) {
      std::int32_t flag = 0;
      grid.data()->GetRowSelected(number, flag);
      if (flag != 0) flags += std::to_string(number);
    }
    EXPECT_EQ(flags, row.flags);
  }
}

}  // namespace
}  // namespace tessera
