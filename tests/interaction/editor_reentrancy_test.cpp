// Whatever a listener does inside an event, the grid goes on working.

#include "tests/interaction/interaction_fixture.h"

namespace tessera::test {
namespace {

struct Grid : GridTest {
  Grid() {
    column("b").child.type = CellKind::Combo;
    column("b").child.comboItems.addTail({u"Item", u"code"});
    column("c").child.subType = EditKind::PopupFix;
    services.take();
  }
  void TestBody() override {}
};

// Provokes one event.
struct Provocation {
  EventId event;
  std::function<void(Grid&)> prepare;
  std::function<void(Grid&)> act;
};

void nothing(Grid&) {}
void openBox(Grid& grid) {
  grid.press(key::enter);
  grid.type(u"new");
}
void standOn(Grid& grid, const char16_t* id) { grid.focus.setColumnPosition(id); }
void openList(Grid& grid) {
  standOn(grid, u"b");
  grid.press(key::enter);
}
void toRows(Grid& grid) { grid.focus.setColumnPosition(u""); }

std::function<void(Grid&)> pressing(std::int32_t key, Modifiers modifiers = {}) {
  return [key, modifiers](Grid& grid) { grid.press(key, modifiers); };
}

const Provocation provocations[] = {
    {EventId::OnSelChange, nothing, pressing(key::down)},
    {EventId::OnSelChange, nothing, pressing(key::end, withControl)},
    {EventId::OnSelChange, nothing, pressing(key::pageDown)},
    {EventId::OnSelChange, nothing, pressing(key::tab)},
    {EventId::OnSelChange, nothing, [](Grid& grid) { grid.focus.setRowPosition(10); }},
    {EventId::OnSelChange, nothing, [](Grid& grid) { grid.focus.setColumnPosition(u"c"); }},
    {EventId::OnSelChange, nothing, toRows},
    {EventId::OnSelChange, toRows, pressing(key::down)},
    {EventId::OnSelChange, toRows, pressing(key::end, withControl)},
    {EventId::OnSelChanged, nothing, pressing(key::down)},
    {EventId::OnSelChanged, toRows, pressing(key::pageDown)},
    {EventId::OnSelChanged, nothing, pressing(key::tab)},
    {EventId::OnFirstUp, nothing, pressing(key::up)},
    {EventId::OnLastDown, pressing(key::end, withControl), pressing(key::down)},
    {EventId::OnKeyDown, nothing, pressing(key::right)},
    {EventId::OnKeyDown, openBox, pressing(key::left)},
    {EventId::OnKeyDown, openBox, pressing(key::enter)},
    {EventId::OnKeyDown, openList, pressing(key::down)},
    {EventId::OnEnter, nothing, pressing(key::enter)},
    {EventId::OnEnter, nothing, [](Grid& grid) { grid.type(u"xy"); }},
    {EventId::OnEnter, nothing, [](Grid& grid) { grid.editors.imeStarted(); }},
    {EventId::OnExit, openBox, pressing(key::enter)},
    {EventId::OnExit, openBox, pressing(key::escape)},
    {EventId::OnExit, openBox, pressing(key::down)},
    {EventId::OnExit, openBox, pressing(key::tab)},
    {EventId::OnExit, openBox, [](Grid& grid) { grid.window.moveFocus(FakeWindow::Focus::Elsewhere); }},
    {EventId::OnExit, openBox, [](Grid& grid) { grid.data->SetCurrentRow(3); }},
    {EventId::OnChar, openBox, [](Grid& grid) { grid.type(u"z"); }},
    {EventId::OnPopup, [](Grid& grid) { standOn(grid, u"c"); }, pressing(key::enter)},
    {EventId::OnPopup,
     [](Grid& grid) {
       grid.column("a").child.subType = EditKind::Popup;
       openBox(grid);
     },
     pressing(key::enter)},
    {EventId::OnDropDown, [](Grid& grid) { standOn(grid, u"b"); }, pressing(key::enter)},
    {EventId::OnCloseUp, openList, pressing(key::enter)},
    {EventId::OnCloseUp, openList, [](Grid& grid) { grid.window.moveFocus(FakeWindow::Focus::Elsewhere); }},
    {EventId::OnKillFocus, nothing, [](Grid& grid) { grid.window.moveFocus(FakeWindow::Focus::Elsewhere); }},
    {EventId::OnKillFocus, openBox, [](Grid& grid) { grid.window.moveFocus(FakeWindow::Focus::Elsewhere); }},
    {EventId::OnSetFocus, [](Grid& grid) { grid.window.moveFocus(FakeWindow::Focus::Elsewhere); },
     [](Grid& grid) { grid.window.moveFocus(FakeWindow::Focus::Grid); }},
    {EventId::OnSetFocus, [](Grid& grid) { grid.window.moveFocus(FakeWindow::Focus::Elsewhere); },
     [](Grid& grid) { grid.editors.activateEdit(); }},
    {EventId::OnCopy, nothing, pressing(key::c, withControl)},
    {EventId::OnPaste, nothing, pressing(key::v, withControl)},
};

struct Deed {
  const char* what;
  std::function<void(Grid&)> act;
};

const Deed deeds[] = {
    {"refreshes", [](Grid& grid) { grid.refresh(); }},
    {"lets go of the data", [](Grid& grid) { grid.letGoOfData(); }},
    {"deletes the first row", [](Grid& grid) { grid.deleteRow(1); }},
    {"deletes the last rows",
     [](Grid& grid) {
       while (grid.data->rowCount() > 1) grid.deleteRow(grid.data->rowCount());
     }},
    {"deletes all rows",
     [](Grid& grid) {
       while (grid.data->rowCount() > 0) grid.deleteRow(1);
     }},
    {"inserts a row", [](Grid& grid) { grid.data->InsertRow(1); }},
    {"sorts",
     [](Grid& grid) {
       grid.data->SetSortExpr(u"-a");
       grid.data->ApplySort();
     }},
    {"moves the focus", [](Grid& grid) { grid.focus.setRowPosition(5); }},
    {"goes to row mode", [](Grid& grid) { grid.focus.setColumnPosition(u""); }},
    {"goes to cell mode", [](Grid& grid) { grid.focus.setColumnPosition(u"b"); }},
    {"opens an editor", [](Grid& grid) { grid.editors.activateEdit(); }},
    {"takes the focus away", [](Grid& grid) { grid.window.moveFocus(FakeWindow::Focus::Elsewhere); }},
    {"destroys the window", [](Grid& grid) { grid.destroyWindow(); }},
};

// Everything that the model points at is there.
void expectSound(Grid& grid) {
  const FocusModel& focus = grid.parts.focus;
  if (grid.data->rowCount() == 0 || !grid.parts.link.dataSet()) return;
  if (focus.FocusRow && focus.CellMode) {
    EXPECT_EQ(grid.parts.rows.find(focus.FocusRow->row), focus.FocusRow);
  }
  for (const RowNode* row : focus.SelectedRows) EXPECT_EQ(grid.parts.rows.find(row->row), row);
  if (focus.FocusColumn) {
    EXPECT_EQ(grid.position(focus.FocusColumn->value().id.toUtf8()), focus.FocusColumn);
  }
  EXPECT_EQ(grid.parts.drawHolds, 0);
  EXPECT_FALSE(grid.parts.editor.asking);
  if (!grid.editors.active()) return;
  EXPECT_EQ(grid.window.focus == FakeWindow::Focus::Edit, focus.state == FocusState::Editor);
}

void expectAlive(Grid& grid) {
  grid.services.inside.clear();
  if (!grid.parts.window) {
    grid.parts.window = &grid.window;
    grid.editors.windowCreated();
  }
  grid.setRows(4);
  grid.window.moveFocus(FakeWindow::Focus::Elsewhere);
  grid.window.moveFocus(FakeWindow::Focus::Grid);
  grid.focus.setColumnPosition(u"a");
  grid.focus.setRowPosition(2);
  ASSERT_EQ(grid.focusText(), "2 a");
  grid.press(key::enter);
  ASSERT_TRUE(grid.editors.active());
  grid.type(u"alive");
  grid.press(key::down);
  EXPECT_EQ(grid.focusText(), "3 a");
  EXPECT_EQ(grid.cellText(2, "a"), "alive");
}

TEST(InsideEvents, TheGridGoesOnWorking) {
  for (const Provocation& provocation : provocations) {
    for (const Deed& deed : deeds) {
      SCOPED_TRACE(std::string(eventName(provocation.event)) + " number " +
                   std::to_string(&provocation - provocations) + ' ' + deed.what);
      Grid grid;
      provocation.prepare(grid);
      grid.services.take();
      bool ran = false;
      grid.services.inside[provocation.event] = [&] {
        ran = true;
        deed.act(grid);
      };
      provocation.act(grid);
      EXPECT_TRUE(ran);
      expectSound(grid);
      expectAlive(grid);
    }
  }
}

// The data set tells of a write while the editor is still closing.
TEST(InsideWrites, TheGridGoesOnWorking) {
  struct Writer {
    std::function<void(Grid&)> prepare;
    std::function<void(Grid&)> act;
    std::size_t mostWrites;
  };
  const auto leave = [](Grid& grid) { grid.window.moveFocus(FakeWindow::Focus::Elsewhere); };
  const auto makeCheck = [](Grid& grid) { grid.column("a").child.type = CellKind::Check; };
  const auto makeRadio = [](Grid& grid) {
    grid.column("a").child.type = CellKind::Radio;
    grid.data->SetTextByName(1, u"a", u"F");
  };
  const Writer writers[] = {
      {openBox, pressing(key::enter), 1},    {openBox, pressing(key::down), 1},
      {openBox, pressing(key::tab), 1},      {openBox, leave, 1},
      {openList, pressing(key::enter), 1},   {makeCheck, pressing(key::space), 1},
      {makeRadio, pressing(key::enter), 11},  // every row, then the cell
  };
  for (const Writer& writer : writers) {
    for (const Deed& deed : deeds) {
      SCOPED_TRACE(std::string("writer ") + std::to_string(&writer - writers) + ' ' + deed.what);
      Grid grid;
      writer.prepare(grid);
      grid.writes.clear();
      bool ran = false;
      grid.whenWritten = [&] {
        ran = true;
        deed.act(grid);
      };
      writer.act(grid);
      EXPECT_TRUE(ran);
      EXPECT_LE(grid.writes.size(), writer.mostWrites);
      expectSound(grid);
      expectAlive(grid);
    }
  }
}

// --- Texts go to the cell they belong to, or nowhere
// ------------------------------------------------------------

TEST(WhereTextsGo, RowsThatMoveUnderAnOpenEditor) {
  struct Row {
    const char* what;
    std::function<void(Grid&)> act;
    const char* column;  // column a afterwards
  };
  const Row table[] = {
      {"a row above goes", [](Grid& grid) { grid.deleteRow(1); }, "a2 new a4 a5"},
      {"a row below goes", [](Grid& grid) { grid.deleteRow(4); }, "a1 a2 new a5"},
      {"the row itself goes", [](Grid& grid) { grid.deleteRow(3); }, "a1 a2 a4 a5"},
      {"a row comes above", [](Grid& grid) { grid.data->InsertRow(2); }, "a1  a2 new a4 a5"},
      {"a row comes in its place", [](Grid& grid) { grid.data->InsertRow(3); }, "a1 a2  new a4 a5"},
      {"a row comes below", [](Grid& grid) { grid.data->InsertRow(4); }, "a1 a2 new  a4 a5"},
      {"refresh", [](Grid& grid) { grid.refresh(); }, "a1 a2 a3 a4 a5"},
      {"sort",
       [](Grid& grid) {
         grid.data->SetSortExpr(u"-a");
         grid.data->ApplySort();
       },
       "a5 a4 a3 a2 a1"},
      {"the window goes", [](Grid& grid) { grid.destroyWindow(); }, "a1 a2 new a4 a5"},
  };
  for (const Row& row : table) {
    SCOPED_TRACE(row.what);
    Grid grid;
    grid.setRows(5);
    grid.focus.setRowPosition(3);
    openBox(grid);
    row.act(grid);
    if (grid.parts.window) grid.press(key::enter);
    std::string column;
    for (std::int32_t number = 1; number <= grid.data->rowCount(); ++number) {
      column += (number > 1 ? " " : "") + grid.cellText(number, "a");
    }
    EXPECT_EQ(column, row.column);
  }
}

// The handler of OnExit has the last word about the text, as long as its row can be told.
TEST(WhereTextsGo, AHandlerOfOnExitTakesTheCellAway) {
  struct Row {
    const char* what;
    std::function<void(Grid&)> act;
    const char* saved;  // column a when the answer is to save
    const char* dropped;
  };
  const auto sort = [](Grid& grid) {
    grid.data->SetSortExpr(u"-a");
    grid.data->ApplySort();
  };
  const Row table[] = {
      {"refresh", [](Grid& grid) { grid.refresh(); }, "a1 new a3 ", "a1 a2 a3 "},
      {"refresh twice", [](Grid& grid) { grid.refresh(), grid.refresh(); }, "a1 new a3 ", "a1 a2 a3 "},
      {"refresh, and a row above goes", [](Grid& grid) { grid.refresh(), grid.deleteRow(1); }, "new a3 ",
       "a2 a3 "},
      {"refresh, and a row comes above", [](Grid& grid) { grid.refresh(), grid.data->InsertRow(1); },
       " a1 new a3 ", " a1 a2 a3 "},
      {"refresh, and the row goes", [](Grid& grid) { grid.refresh(), grid.deleteRow(2); }, "a1 a3 ",
       "a1 a3 "},
      {"refresh, and other rows", [&](Grid& grid) { grid.refresh(), sort(grid); }, "a3 a2 a1 ", "a3 a2 a1 "},
      {"other rows", sort, "a3 a2 a1 ", "a3 a2 a1 "},
      {"new data", [](Grid& grid) { grid.data->notifier().dataChanged(0); }, "a1 a2 a3 ", "a1 a2 a3 "},
      {"no data", [](Grid& grid) { grid.letGoOfData(); }, "a1 a2 a3 ", "a1 a2 a3 "},
  };
  for (const Row& row : table) {
    for (const std::int32_t answer : {1, 2, 3}) {
      SCOPED_TRACE(row.what + std::to_string(answer));
      Grid grid;
      grid.setRows(3);
      grid.focus.setRowPosition(2);
      openBox(grid);
      grid.services.take();
      grid.services.answers[EventId::OnExit] = XValue::ofInt(answer);
      grid.services.inside[EventId::OnExit] = [&] { row.act(grid); };
      grid.focus.setRowPosition(3);
      EXPECT_FALSE(grid.editors.active());
      std::string column;
      for (std::int32_t number = 1; number <= grid.data->rowCount(); ++number) {
        column += grid.cellText(number, "a") + ' ';
      }
      EXPECT_EQ(column, answer == 2 ? row.saved : row.dropped);
      EXPECT_NE(grid.window.focus, FakeWindow::Focus::Edit);
      EXPECT_EQ(grid.services.take().find("OnSelChange "), std::string::npos) << "the move ends";
    }
  }
}

// An edit that a listener begins is another one: the answer about the first must neither close nor write it.
TEST(WhereTextsGo, AnAnswerCountsForItsOwnEditOnly) {
  struct Row {
    const char* what;
    EventId event;
    std::int32_t key;
    std::int32_t answer;
  };
  const Row table[] = {
      {"Enter", EventId::OnExit, key::enter, 2},     {"Escape", EventId::OnExit, key::escape, 2},
      {"a move", EventId::OnExit, key::down, 2},     {"thrown away", EventId::OnExit, key::enter, 3},
      {"kept", EventId::OnExit, key::enter, 1},      {"a popup", EventId::OnPopup, key::enter, 2},
      {"the write", EventId::OnChar, key::enter, 2},
  };
  for (const Row& row : table) {
    SCOPED_TRACE(row.what);
    Grid grid;
    grid.column("a").child.subType = EditKind::Popup;
    openBox(grid);
    const auto begin = [&grid] {
      grid.refresh();
      grid.column("a").child.subType = EditKind::Popup;
      grid.editors.activateEdit();
      grid.type(u"other");
    };
    if (row.event == EventId::OnChar) {
      grid.whenWritten = begin;
    } else {
      grid.services.inside[row.event] = begin;
    }
    grid.services.answers[EventId::OnExit] = XValue::ofInt(row.answer);
    grid.press(row.key);
    EXPECT_TRUE(grid.editors.active());
    EXPECT_EQ(grid.boxText(), "other");
    EXPECT_EQ(grid.window.focus, FakeWindow::Focus::Edit);
    EXPECT_EQ(grid.parts.focus.state, FocusState::Editor);
    EXPECT_EQ(grid.focusText(), "1 a");
    const bool saves = row.answer == 2 && row.key != key::escape;
    EXPECT_EQ(grid.cellText(1, "a"), saves ? "new" : "a1");
  }
}

}  // namespace
}  // namespace tessera::test
