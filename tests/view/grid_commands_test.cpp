#include "tools/view/grid_commands.h"

#include <gtest/gtest.h>
#include <string_view>
#include <utility>

#include "components/data_set_fixture.h"
#include "view/view_fixture.h"

namespace tessera {
namespace {

using testing::OpenGrid;

class Commands : public ::testing::Test {
 protected:
  GridCommands commands() { return {open_.grid(), open_.rows()}; }

  OpenGrid open_{"editors.xml"};
};

TEST_F(Commands, CopyTheTextThatIsShown) {
  for (const auto& [column, expected] : {std::pair{"price", "498.00"}, {"state", "In progress"}}) {
    open_.focus(4, column);
    QString text;
    commands().copy(text);
    EXPECT_EQ(text.toStdString(), expected);
  }
  open_.focus(2, "bike");
  open_.grid().put_ColumnPosition(u"");
  QString text;
  commands().copy(text);
  EXPECT_TRUE(text.startsWith("2\tCity 26\tEva Andersson\tCT26\t0.75\t38.90\tbrakes")) << text.toStdString();
  EXPECT_TRUE(text.endsWith('\n'));
}

TEST_F(Commands, PasteWhatTheCellTakes) {
  struct Row {
    const char* column;
    std::int32_t row;
    const char* clipboard;
    const char* field;
    const char* stored;
    bool silent;  // nothing to tell the person
  };
  const Row rows[] = {
      {"bike", 1, "Trial 20", "BIKE", "Trial 20", true},
      {"bike", 2, "first\nsecond", "BIKE", "first", true},
      {"bike", 4, "a name of more than twenty letters", "BIKE", "a name of more than ", false},
      {"bike", 5, "\nsecond", "BIKE", "Folding 20", false},
      {"code", 1, "abcd", "CODE", "ABCD", true},
      {"price", 1, "1,234.50", "PRICE", "1234.50", false},
      {"price", 3, "dear", "PRICE", "312.40", false},
      {"price", 2, "77", "PRICE", "38.90", false},  // paid for, so not to be edited
      {"hours", 1, "-2.755", "HOURS", "-2.75", false},
      {"state", 1, "R", "STATE", "W", false},
      {"paid", 1, "1", "PAID", "0", false},
      {"photo", 1, "x.png", "PHOTO", "bikes/1.png", false},
  };
  for (const Row& row : rows) {
    open_.focus(row.row, row.column);
    const QString said = commands().paste(row.clipboard);
    EXPECT_EQ(open_.stored(row.row, row.field), row.stored) << row.clipboard;
    EXPECT_EQ(said.isEmpty(), row.silent) << row.clipboard << ": " << said.toStdString();
    EXPECT_FALSE(open_.grid().parts().editor.active) << row.clipboard;
  }
}

TEST(CommandsOnFiles, PasteNumbersThatTheColumnCanHold) {
  struct Row {
    const char *column, *clipboard, *stored;
    bool silent;
  };
  const Row rows[] = {{"N", "12", "12", true},      {"N", "99999999999", "7", false},
                      {"N", "07", "7", true},       {"D", "0.125", "0.12", false},
                      {"D", "1e5", "15.00", false}, {"T", "<b>7</b>", "<b>7</b>", true}};
  const TempFolder folder;
  const std::string file = folder.write("plain.csv", "N,D,T\n7,1.50,x\n8,2.25,y\n");
  for (const Row& row : rows) {
    OpenGrid open(file);
    open.focus(1, row.column);
    const QString said = GridCommands(open.grid(), open.rows()).paste(row.clipboard);
    EXPECT_EQ(open.stored(1, row.column), row.stored) << row.clipboard;
    EXPECT_EQ(said.isEmpty(), row.silent) << row.clipboard << ": " << said.toStdString();
  }
}

TEST(CommandsOnFiles, QuoteOddTextsAndSortByOddNames) {
  const TempFolder folder;
  OpenGrid open(folder.write("odd.csv", "\"a,b\",c\n\"two\nlines\",\"say \"\"no\"\"\"\n\"a\tb\",plain\n"));
  GridCommands commands(open.grid(), open.rows());
  const char* const copies[] = {"\"two\nlines\"\t\"say \"\"no\"\"\"\n", "\"a\tb\"\tplain\n"};
  for (std::int32_t row = 1; row <= 2; ++row) {
    open.focus(row, "c");
    open.grid().put_ColumnPosition(u"");
    QString text;
    commands.copy(text);
    EXPECT_EQ(text.toStdString(), copies[row - 1]);
  }
  open.focus(1, "a,b");
  EXPECT_EQ(commands.sort(GridCommands::Order::Ascending).toStdString(), "Sorted by a,b.");
  EXPECT_EQ(open.stored(1, "c"), "plain");
}

TEST_F(Commands, EditOnlyWhatMayBeEdited) {
  struct Row {
    const char* column;
    std::int32_t row;
    bool editor, list;
  };
  for (const Row& row : {Row{"bike", 1, true, false}, Row{"price", 2, false, false},
                         Row{"state", 1, false, true}, Row{"paid", 1, false, false}}) {
    open_.focus(row.row, row.column);
    const QString said = commands().editCell();
    EXPECT_EQ(open_.grid().parts().editor.active, row.editor) << row.column;
    EXPECT_EQ(open_.grid().controllers().editors.list().isOpen(), row.list) << row.column;
    EXPECT_EQ(said.isEmpty(), row.editor || row.list) << said.toStdString();
    EXPECT_TRUE(commands().finishEdit());
    open_.grid().controllers().editors.list().close(false);
  }
  EXPECT_EQ(open_.stored(1, "PAID"), "0");
}

// Whatever changes rows writes an open edit first, into the row that it belongs to.
TEST_F(Commands, SaveTheOpenEditFirst) {
  const auto type = [&](std::int32_t row, const char16_t* text) {
    open_.focus(row, "bike");
    open_.grid().ActivateEdit();
    open_.grid().parts().editor.box->setText(text);
  };
  type(3, u"Inserted over");
  commands().insertRow();
  EXPECT_EQ(open_.stored(4, "BIKE"), "Inserted over");
  EXPECT_EQ(open_.stored(3, "BIKE"), "");
  EXPECT_EQ(open_.place(), "bike 3");
  type(1, u"ZZZ");
  commands().sort(GridCommands::Order::Descending);
  EXPECT_EQ(open_.stored(1, "BIKE"), "ZZZ");
  EXPECT_EQ(open_.place(), "bike 1");
}

class StayOpen : public ITesseraEvents {
 public:
  HResult Invoke(EventId id, std::span<const XValue>, XValue& result) override {
    if (id == EventId::OnExit && stays) result = XValue::ofInt(1);
    return S_OK;
  }
  bool stays = true;
};

TEST(CommandsOfAStubbornForm, DoNothingWhileTheEditorStays) {
  StayOpen answer;
  OpenGrid open("editors.xml", &answer);
  GridCommands commands(open.grid(), open.rows());
  open.focus(2, "bike");
  open.grid().ActivateEdit();
  const std::int32_t rows = open.rowCount();
  EXPECT_FALSE(commands.finishEdit());
  EXPECT_FALSE(commands.deleteRows().isEmpty());
  EXPECT_FALSE(commands.insertRow().isEmpty());
  EXPECT_FALSE(commands.sort(GridCommands::Order::Ascending).isEmpty());
  EXPECT_EQ(open.rowCount(), rows);
  EXPECT_EQ(open.stored(1, "BIKE"), "Touring 28");
  EXPECT_TRUE(open.grid().parts().editor.active);
  answer.stays = false;
  EXPECT_TRUE(commands.finishEdit());
}

TEST_F(Commands, InsertAndDeleteRows) {
  open_.focus(2, "bike");
  commands().insertRow();
  EXPECT_EQ(open_.place(), "bike 2");
  EXPECT_EQ(open_.stored(3, "JOB"), "2");
  commands().appendRow();
  EXPECT_EQ(open_.place(), "bike 12");
  commands().deleteRows();
  EXPECT_EQ(open_.place(), "bike 11");
  EXPECT_EQ(open_.stored(11, "JOB"), "10");
  // Whole rows: all that are selected.
  open_.focus(3, "bike");
  open_.grid().put_ColumnPosition(u"");
  const GridFrame frame = open_.grid().parts().frame();
  for (const std::int32_t row : {6, 5}) {
    const std::int32_t top = open_.grid().parts().page.VisibleRows.front().number;
    const Point at{4, frame.firstRowTop() + (row - top) * frame.rowHeight + 2};
    for (const MouseAction action : {MouseAction::LeftDown, MouseAction::LeftUp})
      open_.host().input().mouse(action, at, {.control = true});
  }
  XString selected;
  open_.grid().get_SelectedRows(selected);
  ASSERT_EQ(selected.toUtf8(), "3,5,6");
  commands().deleteRows();
  EXPECT_EQ(open_.rowCount(), 8);
  EXPECT_EQ(open_.stored(3, "JOB") + open_.stored(4, "JOB"), "36");
}

TEST_F(Commands, FillAnEmptyDataSet) {
  while (open_.rowCount() > 0) open_.rows()->DeleteRow(1);
  EXPECT_FALSE(commands().deleteRows().isEmpty());
  EXPECT_FALSE(commands().editCell().isEmpty());
  commands().insertRow();
  EXPECT_EQ(open_.rowCount(), 1);
  open_.focus(1, "bike");
  commands().paste("the first");
  EXPECT_EQ(open_.stored(1, "BIKE"), "the first");
}

TEST_F(Commands, SortAndKeepTheCell) {
  using Order = GridCommands::Order;
  open_.focus(4, "customer");  // Cargo long
  commands().sort(Order::Ascending);
  EXPECT_EQ(open_.stored(1, "CUSTOMER"), "Anna Bauer");
  EXPECT_EQ(open_.place(), "customer 10");
  commands().sort(Order::Descending);
  EXPECT_EQ(open_.stored(10, "CUSTOMER"), "Anna Bauer");
  EXPECT_EQ(open_.place(), "customer 1");
  commands().sort(Order::AsLoaded);
  EXPECT_EQ(open_.stored(1, "CUSTOMER"), "Jürgen Ivanova");
  EXPECT_EQ(open_.place(), "customer 4");
}

}  // namespace
}  // namespace tessera
