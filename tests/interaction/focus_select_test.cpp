// Selected rows, presses on rows, and the position properties.

#include "tests/interaction/interaction_fixture.h"

namespace tessera::test {
namespace {

// Where a press meets a row: in the indicator, or in the column at `x`. Rows from 1 are those of the page.
Point indicatorAt(std::int32_t row) { return {8, 20 * row + 10}; }
Point cellAt(std::int32_t x, std::int32_t row) { return {16 + x, 20 * row + 10}; }

using RowModeTest = GridTest;

TEST_F(RowModeTest, PressesInTheIndicator) {
  struct Row {
    const char* what;
    std::int32_t row;
    Modifiers modifiers;
    const char* focus;
    const char* flags;
  };
  const Row table[] = {
      {"out of cell mode", 3, {}, "rows 3", "3"},
      {"another row", 1, {}, "rows 1", "1"},
      {"Ctrl adds at the head", 3, withControl, "rows 3 1", "1 3"},
      {"Ctrl adds", 4, withControl, "rows 4 3 1", "1 3 4"},
      {"Ctrl takes out", 3, withControl, "rows 4 1", "1 4"},
      {"Ctrl takes the head out", 4, withControl, "rows 1", "1"},
      {"Ctrl leaves the last one", 1, withControl, "rows 1", "1"},
      {"Shift downward", 3, withShift, "rows 1 2 3", "1 2 3"},
      {"Shift again, from the same head", 2, withShift, "rows 1 2", "1 2"},
      {"one row", 4, {}, "rows 4", "4"},
      {"Shift upward", 2, withShift, "rows 4 3 2", "2 3 4"},
      {"Shift to the head itself", 4, withShift, "rows 4", "4"},
      {"Ctrl before Shift", 2, withBoth, "rows 2 4", "2 4"},
  };
  for (const Row& row : table) {
    SCOPED_TRACE(row.what);
    EXPECT_TRUE(pressRow(indicatorAt(row.row), row.modifiers));
    EXPECT_EQ(focusText(), row.focus);
    EXPECT_EQ(flags(), row.flags);
  }
  EXPECT_EQ(services.take(), "") << "the mouse asks and tells";
}

TEST_F(RowModeTest, ASelectionThatCouldBeDraggedStays) {
  pressRow(indicatorAt(1), {});
  pressRow(indicatorAt(2), withControl);
  parts.settings.DragDrop = drag_drop::rows;
  pressRow(indicatorAt(1), {});
  EXPECT_EQ(focusText(), "rows 2 1");
  pressRow(indicatorAt(3), {});
  EXPECT_EQ(focusText(), "rows 3");
  pressRow(indicatorAt(3), {});
  EXPECT_EQ(focusText(), "rows 3");
}

TEST_F(RowModeTest, PressesInCells) {
  pressRow(indicatorAt(2), {});
  pressRow(indicatorAt(3), withControl);
  EXPECT_TRUE(pressRow(cellAt(70, 1), {}));
  EXPECT_EQ(focusText(), "1 b");
  EXPECT_EQ(flags(), "1");
  EXPECT_TRUE(pressRow(cellAt(10, 4), withShift));
  EXPECT_EQ(focusText(), "4 a");
  EXPECT_EQ(flags(), "4");
  EXPECT_FALSE(pressRow({20, 10}, {})) << "the header";
  setRows(2);
  EXPECT_FALSE(pressRow(cellAt(10, 3), {})) << "below the last row";
}

TEST_F(RowModeTest, APressBetweenTheCellsKeepsTheColumn) {
  setColumns("a 0 60 0 20\nb 60 120 0 20\nc 120 180 0 20\nd 0 60 20 40");
  window.size = {250, 181};
  focus.setColumnPosition(u"c");
  const Point gap{16 + 100, 20 + 40 + 30};
  EXPECT_TRUE(pressRow(gap, {}));
  EXPECT_EQ(focusText(), "2 c");
  pressRow({8, 30}, {});
  EXPECT_EQ(focusText(), "rows 1");
  EXPECT_TRUE(pressRow(gap, {}));
  EXPECT_EQ(focusText(), "2 a") << "a cell with the focus needs a column";
  EXPECT_TRUE(pressRow({16 + 10, 20 + 40 + 30}, {}));
  EXPECT_EQ(focusText(), "2 d");
  EXPECT_EQ(parts.metrics.CurrentLine, 1);
}

TEST_F(RowModeTest, Keys) {
  focus.setRowPosition(9);
  focus.setColumnPosition(u"");
  services.take();
  struct Row {
    const char* what;
    std::int32_t key;
    Modifiers modifiers;
    const char* events;
    const char* focus;
  };
  const Row table[] = {
      {"left", key::left, {}, "OnKeyDown 37 0; ", "rows 9"},
      {"down", key::down, {}, "OnSelChange  10; OnSelChanged  10; OnKeyDown 40 0; ", "rows 10"},
      {"down at the end", key::down, {}, "OnLastDown; OnKeyDown 40 0; ", "rows 10"},
      {"page down at the end", key::pageDown, {}, "OnKeyDown 34 0; ", "rows 10"},
      {"home alone", key::home, {}, "OnKeyDown 36 0; ", "rows 10"},
      {"page up", key::pageUp, {}, "OnSelChange  6; OnSelChanged  6; OnKeyDown 33 0; ", "rows 6"},
      {"home with Ctrl", key::home, withControl, "OnSelChange  1; OnSelChanged  1; OnKeyDown 36 1; ",
       "rows 1"},
      {"and again", key::home, withControl, "OnKeyDown 36 1; ", "rows 1"},
      {"up at the top", key::up, {}, "OnFirstUp; OnKeyDown 38 0; ", "rows 1"},
      {"end with Ctrl", key::end, withControl, "OnSelChange  10; OnSelChanged  10; OnKeyDown 35 1; ",
       "rows 10"},
      {"a letter", key::c, {}, "OnKeyDown 67 0; ", "rows 10"},
      {"enter", key::enter, {}, "OnKeyDown 13 0; ", "rows 10"},
      {"space", key::space, {}, "OnKeyDown 32 0; ", "rows 10"},
  };
  for (const Row& row : table) {
    SCOPED_TRACE(row.what);
    press(row.key, row.modifiers);
    EXPECT_EQ(services.take(), row.events);
    EXPECT_EQ(focusText(), row.focus);
    EXPECT_GE(parts.page.VisibleIndex(parts.focus.SelectedRows.front()), 0);
  }
  type(u"x");
  EXPECT_FALSE(editors.active());
}

// At the ends several rows shrink to the first one, without the end's event.
TEST_F(RowModeTest, SeveralRowsShrinkAtTheEnds) {
  pressRow(indicatorAt(3), {});
  pressRow(indicatorAt(1), withControl);
  press(key::up);
  EXPECT_EQ(services.take(), "OnSelChange  1; OnSelChanged  1; OnKeyDown 38 0; ");
  EXPECT_EQ(focusText(), "rows 1");
  EXPECT_EQ(flags(), "1");
  pressRow(indicatorAt(2), {});
  pressRow(indicatorAt(1), withControl);
  services.answers[EventId::OnSelChange] = XValue::ofBool(false);
  press(key::pageUp);
  EXPECT_EQ(services.take(), "OnSelChange  1; OnKeyDown 33 0; ");
  EXPECT_EQ(focusText(), "rows 1 2");
  EXPECT_EQ(flags(), "1 2");
}

using Positions = GridTest;

TEST_F(Positions, Rows) {
  focus.setRowPosition(7);
  EXPECT_EQ(services.take(), "OnSelChange a 7; OnSelChanged a 7; ");
  EXPECT_EQ(focusText(), "7 a");
  EXPECT_EQ(flags(), "7");
  EXPECT_GE(parts.page.VisibleIndex(parts.focus.FocusRow), 0);
  for (const std::int32_t row : {7, 0, -1, 11}) focus.setRowPosition(row);
  EXPECT_EQ(services.take(), "");
  focus.setColumnPosition(u"");
  services.take();
  focus.setRowPosition(7);
  EXPECT_EQ(services.take(), "");
  focus.setRowPosition(2);
  EXPECT_EQ(services.take(), "OnSelChange  2; OnSelChanged  2; ");
  EXPECT_EQ(focusText(), "rows 2");
  EXPECT_EQ(flags(), "2");
}

TEST_F(Positions, Columns) {
  column("b").viewVisible = false;
  focus.setColumnPosition(u"b");
  focus.setColumnPosition(u"C");
  EXPECT_EQ(services.take(), "") << "hidden, or written otherwise";
  focus.setColumnPosition(u"c");
  focus.setColumnPosition(u"c");
  EXPECT_EQ(services.take(), "OnSelChange c 1; OnSelChanged c 1; OnSelChange c 1; OnSelChanged c 1; ");
  EXPECT_EQ(parts.focus.FocusLeft, 136);
  focus.setColumnPosition(u"");
  EXPECT_EQ(services.take(), "OnSelChange  1; OnSelChanged  1; ");
  EXPECT_EQ(focusText(), "rows 1");
  EXPECT_EQ(flags(), "1");
  focus.setColumnPosition(u"");
  EXPECT_EQ(services.take(), "");
  pressRow(indicatorAt(2), withControl);
  focus.setColumnPosition(u"a");
  EXPECT_EQ(focusText(), "2 a") << "the head of the selection";
  EXPECT_EQ(flags(), "2");
}

TEST_F(Positions, NeedRowsAndData) {
  focus.setColumnPosition(u"");
  parts.focus.SelectedRows.clear();
  services.take();
  focus.setRowPosition(3);
  focus.setColumnPosition(u"a");
  letGoOfData();
  focus.setRowPosition(3);
  EXPECT_EQ(services.take(), "");
  EXPECT_EQ(focusText(), "rows");
}

TEST_F(Positions, AnOpenEditorIsAskedFirst) {
  press(key::enter);
  type(u"new");
  services.take();
  services.answers[EventId::OnExit] = XValue::ofInt(1);
  focus.setRowPosition(4);
  focus.setColumnPosition(u"b");
  focus.setColumnPosition(u"");
  EXPECT_EQ(services.take(), "OnExit a 1 a1; OnExit a 1 a1; OnExit a 1 a1; ");
  EXPECT_EQ(focusText(), "1 a");
  services.answers.clear();
  focus.setColumnPosition(u"b");
  EXPECT_EQ(services.take(), "OnExit a 1 a1; OnSelChange b 1; OnSelChanged b 1; ");
  EXPECT_EQ(cellText(1, "a"), "new");
}

// Without a window there is no page, but the focus moves.
TEST_F(Positions, WorkWithoutAWindow) {
  destroyWindow();
  focus.setRowPosition(3);
  focus.setColumnPosition(u"c");
  EXPECT_EQ(focusText(), "3 c");
  press(key::down);
  EXPECT_EQ(focusText(), "3 c");
}

using FocusStateTest = GridTest;

TEST_F(FocusStateTest, OnlyComingAndGoingIsTold) {
  struct Row {
    FakeWindow::Focus to;
    const char* events;
    FocusState state;
  };
  using enum FakeWindow::Focus;
  const Row table[] = {
      {Elsewhere, "OnKillFocus; ", FocusState::Outside},
      {Grid, "OnSetFocus; ", FocusState::Grid},
  };
  for (int times = 0; times < 2; ++times) {
    for (const Row& row : table) {
      const int repaints = services.repaints;
      window.moveFocus(row.to);
      EXPECT_EQ(services.take(), row.events);
      EXPECT_EQ(parts.focus.state, row.state);
      EXPECT_GT(services.repaints, repaints);
    }
  }
  press(key::enter);
  EXPECT_EQ(services.take(), "OnEnter a 1; OnKeyDown 13 0; ") << "the box belongs to the control";
  EXPECT_EQ(parts.focus.state, FocusState::Editor);
  window.moveFocus(Elsewhere);
  EXPECT_EQ(services.take(), "OnExit a 1 a1; OnKillFocus; ");
  EXPECT_EQ(parts.focus.state, FocusState::Outside);
}

// A click into the open box, or into the list, after the focus has been on the grid's own window.
TEST_F(FocusStateTest, BackIntoTheBoxOrTheList) {
  press(key::enter);
  window.moveFocus(FakeWindow::Focus::Grid);
  services.take();
  window.moveFocus(FakeWindow::Focus::Edit);
  EXPECT_EQ(parts.focus.state, FocusState::Editor);
  window.moveFocus(FakeWindow::Focus::Grid);
  window.moveFocus(FakeWindow::Focus::List);
  EXPECT_EQ(parts.focus.state, FocusState::List);
  EXPECT_EQ(services.take(), "");
}

TEST_F(FocusStateTest, AListenerOfOnExitFetchesTheFocusBack) {
  press(key::enter);
  services.take();
  services.inside[EventId::OnExit] = [this] { window.moveFocus(FakeWindow::Focus::Grid); };
  window.moveFocus(FakeWindow::Focus::Elsewhere);
  EXPECT_EQ(services.take(), "OnExit a 1 a1; OnSetFocus; ");
  EXPECT_EQ(parts.focus.state, FocusState::Grid);
}

TEST_F(FocusStateTest, AWindowThatRefusesTheFocusLeavesTheControlWithoutIt) {
  press(key::enter);
  window.refusesFocus = true;
  press(key::escape);
  EXPECT_FALSE(editors.active());
  EXPECT_EQ(parts.focus.state, FocusState::Outside);
}

// What a listener opens while it is asked about a move must not stand over the cell that is left.
TEST_F(Positions, WhatOpensDuringTheQuestionEndsBeforeTheMove) {
  struct Row {
    const char* what;
    std::function<void()> move;
    const char* asked;
    const char* moved;
    const char* focus;
  };
  const Row table[] = {
      {"key", [this] { press(key::down); }, "OnSelChange a 2; ", "OnSelChanged a 2; OnKeyDown 40 0; ", "2 a"},
      {"row", [this] { focus.setRowPosition(5); }, "OnSelChange a 5; ", "OnSelChanged a 5; ", "5 a"},
      {"column", [this] { focus.setColumnPosition(u"c"); }, "OnSelChange c 1; ", "OnSelChanged c 1; ", "1 c"},
      {"row mode", [this] { focus.setColumnPosition(u""); }, "OnSelChange  1; ", "OnSelChanged  1; ",
       "rows 1"},
  };
  const auto start = [this] {
    focus.setColumnPosition(u"a");
    focus.setRowPosition(1);
    services.take();
  };
  for (const Row& row : table) {
    SCOPED_TRACE(row.what);
    start();
    services.inside[EventId::OnSelChange] = [this] {
      editors.activateEdit();
      type(u"new");
    };
    row.move();
    const std::string opened = "OnEnter a 1; OnChar; OnChar; OnChar; ";
    EXPECT_EQ(services.take().substr(0, std::string(row.asked).size() + opened.size()), row.asked + opened);
    EXPECT_EQ(focusText(), row.focus);
    EXPECT_FALSE(editors.active());
    EXPECT_EQ(cellText(1, "a"), "new");
    start();
    services.inside[EventId::OnSelChange] = [this] { editors.activateEdit(); };
    services.answers[EventId::OnExit] = XValue::ofInt(1);
    row.move();
    EXPECT_EQ(focusText(), "1 a") << "an editor that stays keeps the focus";
    EXPECT_TRUE(editors.active());
    services.answers.clear();
    press(key::escape);
    column("a").child.type = CellKind::Combo;
    start();
    services.inside[EventId::OnSelChange] = [this] { EXPECT_TRUE(editors.list().open()); };
    row.move();
    EXPECT_EQ(services.take(), std::string(row.asked) + "OnDropDown a 1; OnCloseUp a 1; " + row.moved);
    EXPECT_EQ(focusText(), row.focus);
    column("a").child.type = CellKind::Edit;
  }
}

TEST_F(FocusStateTest, AnEditorThatOpensAtOnceKeepsTheFocus) {
  window.moveFocus(FakeWindow::Focus::Elsewhere);
  services.take();
  services.inside[EventId::OnSetFocus] = [this] { editors.activateEdit(); };
  window.moveFocus(FakeWindow::Focus::Grid);
  EXPECT_EQ(services.take(), "OnSetFocus; OnEnter a 1; ");
  EXPECT_EQ(parts.focus.state, FocusState::Editor);
  EXPECT_EQ(window.focus, FakeWindow::Focus::Edit);
}

TEST_F(FocusStateTest, InputMethodOfTheColumn) {
  struct Row {
    CellKind kind;
    std::int32_t ofColumn;
    std::int32_t ofControl;
    std::vector<bool> calls;
  };
  const Row table[] = {
      {CellKind::Edit, 0, 0, {}},      {CellKind::Edit, 1, 0, {true}},   {CellKind::Edit, 2, 1, {false}},
      {CellKind::Edit, 0, 1, {true}},  {CellKind::Combo, 1, 2, {false}}, {CellKind::None, 1, 0, {}},
      {CellKind::Edit, 0, 2, {false}},
  };
  for (const Row& row : table) {
    parts.settings.IME = row.ofControl;
    column("b").child.type = row.kind;
    column("b").child.ime = row.ofColumn;
    focus.setColumnPosition(u"a");
    window.ime.calls.clear();
    focus.setColumnPosition(u"b");
    EXPECT_EQ(window.ime.calls, row.calls) << row.ofColumn << ' ' << row.ofControl;
  }
  parts.settings.IME = 1;
  window.ime.calls.clear();
  focus.setColumnPosition(u"");
  focus.applyImeMode();
  EXPECT_EQ(window.ime.calls, std::vector<bool>()) << "row mode has no cell to type into";
}

}  // namespace
}  // namespace tessera::test
