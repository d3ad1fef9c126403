// Moves by key: what happens, and in which order.

#include "tests/geometry/columns_of.h"
#include "tests/interaction/interaction_fixture.h"

namespace tessera::test {
namespace {

using KeyMoves = GridTest;

const XValue no = XValue::ofBool(false);

struct KeyRow {
  const char* what;
  std::int32_t key;
  Modifiers modifiers;
  const char* events;
  const char* focus;
};

TEST_F(KeyMoves, OneKeyAfterTheOther) {
  const KeyRow table[] = {
      {"up on the first row", key::up, {}, "OnFirstUp; OnKeyDown 38 0; ", "1 a"},
      {"left on the first cell", key::left, {}, "OnKeyDown 37 0; ", "1 a"},
      {"down", key::down, {}, "OnSelChange a 2; OnSelChanged a 2; OnKeyDown 40 0; ", "2 a"},
      {"right", key::right, {}, "OnSelChange b 2; OnSelChanged b 2; OnKeyDown 39 0; ", "2 b"},
      {"right again", key::right, {}, "OnSelChange c 2; OnSelChanged c 2; OnKeyDown 39 0; ", "2 c"},
      {"right to the next row", key::right, {}, "OnSelChange a 3; OnSelChanged a 3; OnKeyDown 39 0; ", "3 a"},
      {"left to the row before", key::left, {}, "OnSelChange c 2; OnSelChanged c 2; OnKeyDown 37 0; ", "2 c"},
      {"home", key::home, {}, "OnSelChange a 2; OnSelChanged a 2; OnKeyDown 36 0; ", "2 a"},
      {"home at home", key::home, {}, "OnKeyDown 36 0; ", "2 a"},
      {"end", key::end, {}, "OnSelChange c 2; OnSelChanged c 2; OnKeyDown 35 0; ", "2 c"},
      {"end with Ctrl", key::end, withControl, "OnSelChange c 10; OnSelChanged c 10; OnKeyDown 35 1; ",
       "10 c"},
      {"right on the last cell", key::right, {}, "OnKeyDown 39 0; ", "10 c"},
      {"down on the last row", key::down, withShift, "OnLastDown; OnKeyDown 40 2; ", "10 c"},
      {"page up", key::pageUp, {}, "OnSelChange c 6; OnSelChanged c 6; OnKeyDown 33 0; ", "6 c"},
      {"home with both", key::home, withBoth, "OnSelChange a 1; OnSelChanged a 1; OnKeyDown 36 3; ", "1 a"},
      {"page up at the top", key::pageUp, {}, "OnKeyDown 33 0; ", "1 a"},
      {"page down", key::pageDown, {}, "OnSelChange a 5; OnSelChanged a 5; OnKeyDown 34 0; ", "5 a"},
      {"page down", key::pageDown, {}, "OnSelChange a 9; OnSelChanged a 9; OnKeyDown 34 0; ", "9 a"},
      {"page down to the end",
       key::pageDown,
       {},
       "OnSelChange a 10; OnSelChanged a 10; OnKeyDown 34 0; ",
       "10 a"},
      {"page down at the end", key::pageDown, {}, "OnKeyDown 34 0; ", "10 a"},
      {"a key without a meaning", 112, {}, "OnKeyDown 112 0; ", "10 a"},
  };
  for (const KeyRow& row : table) {
    SCOPED_TRACE(row.what);
    press(row.key, row.modifiers);
    EXPECT_EQ(services.take(), row.events);
    EXPECT_EQ(focusText(), row.focus);
    EXPECT_EQ(parts.focus.FocusLeft, parts.focus.FocusColumn->value().view.rect.left);
    EXPECT_GE(parts.page.VisibleIndex(parts.focus.FocusRow), 0);
  }
}

TEST_F(KeyMoves, AVetoLeavesEverythingAsItWas) {
  focus.setRowPosition(3);
  focus.setColumnPosition(u"b");
  services.take();
  services.answers[EventId::OnSelChange] = no;
  const std::string marked = flags();
  for (const std::int32_t key :
       {key::up, key::down, key::left, key::right, key::pageDown, key::home, key::end}) {
    press(key);
    EXPECT_EQ(focusText(), "3 b") << key;
    EXPECT_EQ(flags(), marked) << key;
    EXPECT_EQ(services.take().find("OnSelChanged"), std::string::npos) << key;
  }
  focus.setRowPosition(5);
  focus.setColumnPosition(u"c");
  focus.setColumnPosition(u"");
  EXPECT_EQ(focusText(), "3 b");
}

TEST_F(KeyMoves, OnlyABooleanAnswerIsAVeto) {
  XValue answer;
  answer.setInteger(VT_I2, 0);
  services.answers[EventId::OnSelChange] = answer;
  press(key::down);
  EXPECT_EQ(focusText(), "2 a");
}

TEST_F(KeyMoves, TheFlagFollowsTheRow) {
  press(key::down);
  EXPECT_EQ(flags(), "2");
  press(key::right);
  EXPECT_EQ(flags(), "2");
  press(key::end, withControl);
  EXPECT_EQ(flags(), "10");
}

TEST_F(KeyMoves, NothingMovesWithoutRowsOrHeight) {
  parts.metrics.RowHeight = 0;
  for (const std::int32_t key : {key::down, key::right, key::pageDown}) press(key);
  EXPECT_EQ(focusText(), "1 a");
  setRows(0);
  services.take();
  for (const std::int32_t key :
       {key::down, key::right, key::pageDown, key::home, key::end, key::enter, key::space}) {
    EXPECT_FALSE(press(key)) << "the host sees keys of an empty grid first";
  }
  EXPECT_EQ(focusText(), "0 -");
  EXPECT_EQ(services.take().find("OnSel"), std::string::npos);
}

// The columns that scroll are 60 wide each, f is fixed, and two of five fit beside it.
class ScrolledKeys : public GridTest {
 protected:
  ScrolledKeys() {
    setColumns("f 0 60 0 20 fix\nv 60 120 0 20\nw 120 180 0 20\nx 180 240 0 20\ny 240 300 0 20",
               [](GridTest& test) {
                 for (ColumnRecord& column : test.parts.config.columns) column.child.type = CellKind::Edit;
               });
    window.size = {200, 101};
    setRows(10);
    services.take();
  }
};

TEST_F(ScrolledKeys, RightFromTheFixedColumnsScrollsBack) {
  press(key::end);
  EXPECT_EQ(focusText(), "1 y");
  EXPECT_EQ(parts.focus.FocusLeft, column("y").view.rect.left);
  const std::int32_t stop = parts.page.ColumnStop;
  EXPECT_GT(stop, 1);
  focus.setColumnPosition(u"f");
  EXPECT_EQ(parts.page.ColumnStop, stop);
  EXPECT_EQ(parts.focus.FocusLeft, 16) << "the fixed column stands still while the others scroll";
  press(key::right);
  EXPECT_EQ(focusText(), "1 v");
  EXPECT_EQ(parts.page.ColumnStop, 1);
}

TEST_F(ScrolledKeys, FocusLeftOfAFixedColumnSurvivesScrolling) {
  press(key::end);
  EXPECT_GT(parts.page.ColumnStop, 1);
  focus.setColumnPosition(u"f");
  press(key::home);
  EXPECT_EQ(parts.page.ColumnStop, 1);
  EXPECT_EQ(parts.focus.FocusLeft, 16);
  press(key::down);
  EXPECT_EQ(focusText(), "2 f");
}

TEST_F(ScrolledKeys, LeftWalksBackThroughAllOfThem) {
  press(key::end);
  std::string way;
  for (int steps = 0; steps < 4; ++steps) {
    press(key::left);
    way += focusText() + "; ";
  }
  EXPECT_EQ(way, "1 x; 1 w; 1 v; 1 f; ");
}

// On the lower line v reaches neither as far left nor as far right as the columns above it.
TEST_F(ScrolledKeys, WithoutATargetHomeAndEndLeaveTheColumnsAlone) {
  setColumns("a 0 60 0 20\nb 60 120 0 20\nc 120 180 0 20\nd 180 240 0 20\nv 70 150 20 40");
  window.size = {120, 101};
  refresh();
  focus.setColumnPosition(u"v");
  ASSERT_EQ(parts.metrics.CurrentLine, 1);
  const std::int32_t stop = parts.page.ColumnStop;
  ASSERT_EQ(stop, 2);
  const std::string placed = headersOf(parts.config.columns);
  for (const std::int32_t key : {key::home, key::end}) {
    press(key);
    EXPECT_EQ(focusText(), "1 v");
    EXPECT_EQ(parts.page.ColumnStop, stop) << key;
    EXPECT_EQ(headersOf(parts.config.columns), placed) << key;
    EXPECT_EQ(parts.focus.FocusLeft, column("v").view.rect.left);
  }
}

TEST_F(ScrolledKeys, ATabThatScrollsIsSeenHoweverItEnds) {
  const auto tabFrom = [this](std::int32_t row) {
    press(key::end);
    EXPECT_GT(parts.page.ColumnStop, 1);
    focus.setRowPosition(row);
    focus.setColumnPosition(u"f");
    services.repaints = 0;
    std::int32_t tab = key::tab;
    filter.translate(tab);
    EXPECT_EQ(parts.page.ColumnStop, 1);
    return services.repaints;
  };
  for (const char* id : {"v", "w", "x", "y"}) column(id).child.type = CellKind::None;
  EXPECT_GT(tabFrom(10), 0) << "nothing to edit behind f";
  column("y").child.type = CellKind::Edit;
  press(key::home);
  focus.setRowPosition(1);
  press(key::enter);
  services.answers[EventId::OnExit] = XValue::ofInt(1);
  {
    const GridFrame frame = parts.frame();
    ColumnScroll{parts.config.columns, parts.page, parts.focus, frame}.StepRight();
  }
  services.repaints = 0;
  std::int32_t tab = key::tab;
  EXPECT_EQ(filter.translate(tab), KeyRoute::Done) << "the editor stays";
  EXPECT_EQ(parts.page.ColumnStop, 1);
  EXPECT_GT(services.repaints, 0);
}

// A rebuild that finds the focus column again finds its line, too.
TEST_F(KeyMoves, TheLineOfAColumnThatIsKept) {
  setColumns("a 0 60 0 20\nb 60 120 0 20\nc 0 60 20 40\nd 60 120 20 40");
  setRows(10);
  focus.setColumnPosition(u"c");
  parts.focus.FocusColumnName = u"c";
  refresh();
  EXPECT_EQ(parts.metrics.CurrentLine, 1);
  press(key::right);
  EXPECT_EQ(focusText(), "1 d");
}

// --- Tab
// -----------------------------------------------------------------------------------------------------

using TabMoves = GridTest;

// Only a and c can be edited, the second as a check mark.
void editFirstAndLast(GridTest& test) {
  test.position("a")->value().child.type = CellKind::Edit;
  test.position("c")->value().child.type = CellKind::Check;
}

TEST_F(TabMoves, FromEditorToEditor) {
  EXPECT_TRUE(press(key::tab));
  EXPECT_EQ(services.take(), "OnSelChange b 1; OnSelChanged b 1; OnEnter b 1; OnKeyDown 255 0; ");
  EXPECT_TRUE(editors.active());
  type(u"x");
  services.take();
  EXPECT_TRUE(press(key::tab, withShift));
  EXPECT_EQ(services.take(),
            "OnExit b 1 b1; OnSelChange a 1; OnSelChanged a 1; OnEnter a 1; OnKeyDown 255 2; ");
  EXPECT_EQ(cellText(1, "b"), "x");
  EXPECT_EQ(boxText(), "a1");
}

TEST_F(TabMoves, PassesOverCellsThatCannotBeEdited) {
  setColumns("a 0 60 0 20\nb 60 120 0 20\nc 120 180 0 20", editFirstAndLast);
  press(key::tab);
  EXPECT_EQ(focusText(), "1 c");
  EXPECT_FALSE(editors.active()) << "a check mark has no editor";
  press(key::tab);
  EXPECT_EQ(focusText(), "2 a");
  EXPECT_TRUE(editors.active());
}

TEST_F(TabMoves, NotEditableIsNoReasonToPass) {
  column("b").child.editable = u"false";
  press(key::tab);
  EXPECT_EQ(focusText(), "1 b");
  EXPECT_TRUE(editors.active());
}

TEST_F(TabMoves, AtTheEndsTheHostMovesTheFocus) {
  services.take();
  EXPECT_FALSE(press(key::tab, withShift));
  EXPECT_EQ(services.take(), "OnKeyDown 255 2; OnKeyDown 9 2; ");
  press(key::end, withControl);
  services.take();
  std::int32_t tab = key::tab;
  EXPECT_EQ(filter.translate(tab), KeyRoute::Host);
  EXPECT_EQ(tab, key::tab);
  EXPECT_EQ(services.take(), "OnKeyDown 255 0; ");
  EXPECT_EQ(focusText(), "10 c");
}

TEST_F(TabMoves, WithoutEditorsOrInRowModeTheHostHasIt) {
  setColumns("a 0 60 0 20\nb 60 120 0 20\nc 120 180 0 20");
  services.take();
  std::int32_t tab = key::tab;
  EXPECT_EQ(filter.translate(tab), KeyRoute::Host);
  focus.setColumnPosition(u"");
  services.take();
  EXPECT_EQ(filter.translate(tab), KeyRoute::Host);
  EXPECT_EQ(services.take(), "OnKeyDown 255 0; ");
}

TEST_F(TabMoves, AKeptEditorSwallowsTheKey) {
  press(key::enter);
  services.take();
  services.answers[EventId::OnExit] = XValue::ofInt(1);
  EXPECT_TRUE(press(key::tab));
  EXPECT_EQ(services.take(), "OnExit a 1 a1; OnKeyDown 255 0; ");
  EXPECT_EQ(focusText(), "1 a");
  EXPECT_EQ(window.focus, FakeWindow::Focus::Edit);
}

TEST_F(TabMoves, AGridThatIsDisabledMeanwhileTakesNoKey) {
  services.inside[EventId::OnSelChanged] = [this] { parts.settings.Enable = false; };
  std::int32_t tab = key::tab;
  EXPECT_EQ(filter.translate(tab), KeyRoute::Done);
  EXPECT_EQ(tab, key::tab);
}

TEST_F(TabMoves, AVetoOpensTheEditorWhereItWas) {
  press(key::enter);
  type(u"y");
  services.take();
  services.answers[EventId::OnSelChange] = no;
  press(key::tab);
  EXPECT_EQ(services.take(), "OnExit a 1 a1; OnSelChange b 1; OnEnter a 1; OnKeyDown 255 0; ");
  EXPECT_EQ(cellText(1, "a"), "y");
  EXPECT_EQ(boxText(), "y");
}

TEST(TabOverSummaries, NeverLandsOnOne) {
  // The data set's subtotal rows stand behind each group.
  struct Grouped : GridTest {
    void TestBody() override {}
  } grid;
  grid.data->SetTextByName(1, u"a", u"x");
  for (std::int32_t row = 2; row <= 10; ++row) grid.data->SetTextByName(row, u"a", u"y");
  grid.data->setSubsumExpr("1:a");
  ASSERT_EQ(grid.parts.link.level(2), 1);
  grid.focus.setColumnPosition(u"c");
  std::int32_t tab = key::tab;
  EXPECT_EQ(grid.filter.translate(tab), KeyRoute::Window);
  EXPECT_EQ(RowNumber(grid.parts.focus.FocusRow), 3);
  grid.focus.setRowPosition(2);
  EXPECT_FALSE(grid.editors.openEditor(true)) << "a summary row is never edited";
}

// --- What the host may take
// ------------------------------------------------------------------------------------

using KeyFilterTest = GridTest;

TEST_F(KeyFilterTest, WhoGetsAKey) {
  struct Row {
    const char* what;
    std::int32_t key;
    Modifiers modifiers;
    KeyRoute route;
  };
  const Row table[] = {
      {"arrow", key::left, {}, KeyRoute::Window},
      {"page", key::pageUp, {}, KeyRoute::Window},
      {"home with Ctrl", key::home, withControl, KeyRoute::Window},
      {"enter", key::enter, {}, KeyRoute::Host},
      {"space", key::space, {}, KeyRoute::Host},
      {"c", key::c, {}, KeyRoute::Host},
      {"Ctrl+C", key::c, withControl, KeyRoute::Done},
      {"Ctrl+V", key::v, withControl, KeyRoute::Done},
      {"Ctrl+X", 88, withControl, KeyRoute::Host},
  };
  const auto routes = [&](const char* state, bool allToHost) {
    for (const Row& row : table) {
      SCOPED_TRACE(state + std::string(" ") + row.what);
      window.keys = row.modifiers;
      std::int32_t key = row.key;
      EXPECT_EQ(filter.translate(key), allToHost ? KeyRoute::Host : row.route);
      EXPECT_EQ(key, row.key);
    }
  };
  routes("enabled", false);
  parts.settings.Enable = false;
  routes("disabled", true);
  parts.settings.Enable = true;
  letGoOfData();
  routes("without data", true);
}

TEST_F(KeyFilterTest, ClipboardKeysBecomeEvents) {
  focus.setRowPosition(4);
  services.take();
  press(key::c, withControl);
  press(key::v, withControl);
  EXPECT_EQ(services.take(), "OnCopy 1 0; OnPaste a 4; ");
  press(key::enter);
  services.take();
  EXPECT_TRUE(press(key::c, withControl));
  EXPECT_TRUE(press(key::v, withControl));
  EXPECT_EQ(services.take(), "OnKeyDown 67 1; OnKeyDown 86 1; ") << "the box copies and pastes itself";
  press(key::escape);
  focus.setColumnPosition(u"");
  services.take();
  press(key::c, withControl);
  press(key::v, withControl);
  EXPECT_EQ(services.take(), "OnCopy 0 0; OnPaste  4; ");
  parts.focus.SelectedRows.clear();
  EXPECT_TRUE(press(key::v, withControl));
  EXPECT_EQ(services.take(), "");
}

}  // namespace
}  // namespace tessera::test
