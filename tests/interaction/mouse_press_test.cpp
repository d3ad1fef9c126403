#include "mouse_press_fixture.h"

namespace tessera {
namespace {

using test::MousePress;

TEST_F(MousePress, EventsByPlace) {
  struct Case {
    Point at;
    const char* log;
    const char* focus;
  };
  for (const Case& row :
       {Case{{30, 30}, "OnLButtonDown 3 1 a 30 30; ", "1 a"},
        {{100, 50}, "OnSelChange b 2; OnSelChanged b 2; OnLButtonDown 3 2 b 100 50; ", "2 b"},
        {{100, 50}, "OnLButtonDown 3 2 b 100 50; ", "2 b"},
        {{30, 50}, "OnSelChange a 2; OnSelChanged a 2; OnLButtonDown 3 2 a 30 50; ", "2 a"},
        {{220, 50}, "OnLButtonDown 6 -1  220 50; ", "2 a"},
        {{150, 10}, "OnLButtonDown 2 -1 c 150 10; ", "2 a"},
        {{5, 5}, "OnSelChange  -2; OnSelChanged  -2; OnLButtonDown 1 -2  5 5; ", "2 a"},
        {{5, 70}, "OnSelChange  3; OnSelChanged  3; OnLButtonDown 1 3  5 70; ", "rows 3"},
        {{5, 70}, "OnLButtonDown 1 3  5 70; ", "rows 3"},
        {{30, 70}, "OnSelChange a 3; OnSelChanged a 3; OnLButtonDown 3 3 a 30 70; ", "3 a"}}) {
    EXPECT_EQ(press(row.at.x, row.at.y), row.log);
    EXPECT_EQ(focus(), row.focus);
    release(row.at.x, row.at.y);
  }
}

TEST_F(MousePress, SummaryRowsAndBands) {
  data->rows[1].level = 2;
  EXPECT_EQ(press(100, 50), "OnSelChange b 2; OnSelChanged b 2; OnLButtonDown 4 2 b 100 50; ");
  EXPECT_EQ(press(100, 50), "OnLButtonDown 4 2 b 100 50; ");
  parts.settings.ViewSummary = SummaryBand::Bottom;
  EXPECT_EQ(press(100, 90), "OnLButtonDown 5 -1 b 100 90; ");
  EXPECT_EQ(press(5, 90), "OnSelChange  -3; OnSelChanged  -3; OnLButtonDown 1 -3  5 90; ");
  EXPECT_EQ(focus(), "2 b");
}

TEST_F(MousePress, KeysThatAreHeldExtendTheSelection) {
  press(5, 30);
  window.keys.control = true;
  EXPECT_EQ(press(5, 70), "OnSelChange  3; OnSelChanged  3; OnLButtonDown 1 3  5 70; ");
  EXPECT_EQ(focus(), "rows 3 1");
  EXPECT_EQ(press(5, 70), "OnSelChange  3; OnSelChanged  3; OnLButtonDown 1 3  5 70; ");
  EXPECT_EQ(focus(), "rows 1");
  EXPECT_EQ(selected(), "1000000000");
}

TEST_F(MousePress, AVetoLeavesTheSelectionAlone) {
  services.answers[EventId::OnSelChange] = XValue::ofBool(false);
  column("c").child.type = CellKind::Check;
  EXPECT_EQ(press(100, 50), "OnSelChange b 2; OnLButtonDown 3 2 b 100 50; ");
  EXPECT_EQ(press(5, 50), "OnSelChange  2; OnLButtonDown 1 2  5 50; ");
  EXPECT_EQ(focus(), "1 a");
  EXPECT_EQ(selected(), "1000000000");
  EXPECT_EQ(data->currentRow, 1);
  EXPECT_EQ(parts.mouse.state, MouseState::Idle);
}

TEST_F(MousePress, TheKeyboardFocusComesToTheGrid) {
  press(100, 50);
  EXPECT_EQ(window.focusCalls, 0);
  window.focus = test::FakeWindow::Focus::Elsewhere;
  press(220, 50);
  EXPECT_EQ(window.focusCalls, 1);
}

TEST_F(MousePress, AnOpenEditorClosesFirst) {
  openEditor();
  window.edit->content = u"new";
  EXPECT_EQ(press(30, 50), "OnExit b 1 1; OnSelChange a 2; OnSelChanged a 2; OnLButtonDown 3 2 a 30 50; ");
  EXPECT_EQ(data->rows[0].values[1], XValue::ofText(u"new"));
  EXPECT_EQ(window.focus, test::FakeWindow::Focus::Grid);
}

TEST_F(MousePress, AnEditorThatStaysEndsThePress) {
  openEditor();
  services.answers[EventId::OnExit] = XValue::ofInt(1);
  for (const Point at : {Point{30, 50}, Point{150, 10}, Point{76, 10}, Point{5, 50}}) {
    mouse.leftDown(at);
    EXPECT_TRUE(editors.active());
    EXPECT_EQ(services.take().substr(0, 27), "OnExit b 1 1; OnLButtonDown");
    EXPECT_FALSE(window.captured);
  }
  mouse.rightDown({30, 50});
  EXPECT_EQ(services.take(), "OnExit b 1 1; ");
  EXPECT_EQ(focus(), "1 b");
}

TEST_F(MousePress, TheHeadCheckHasItsOwnEvent) {
  column("b").header.showCheck = true;
  column("b").header.align = align::leftCenter;
  services.inside[EventId::OnHeadCheckClick] = [this] {
    EXPECT_TRUE(column("b").header.checked);
    EXPECT_EQ(services.repaints, 1);
  };
  services.repaints = 0;
  EXPECT_EQ(press(85, 10), "OnHeadCheckClick 4 b 1; ");
  EXPECT_EQ(press(85, 10), "OnHeadCheckClick 4 b 0; ");
  EXPECT_FALSE(column("b").header.checked);
  EXPECT_FALSE(window.captured);
  EXPECT_EQ(press(94, 10), "OnLButtonDown 2 -1 b 94 10; ");
  EXPECT_TRUE(window.captured);
}

TEST_F(MousePress, ACheckFlipsBeforeTheSelectionMoves) {
  ColumnRecord& check = column("c");
  check.child.type = CellKind::Check;
  check.view.align = align::leftCenter;
  parts.settings.DragDrop = drag_drop::block;
  services.inside[EventId::OnSelChanged] = [this] {
    EXPECT_EQ(data->rows[1].values[2], XValue::ofInt(0));
    EXPECT_EQ(focus(), "2 c");
  };
  EXPECT_EQ(press(145, 50), "OnSelChange c 2; OnSelChanged c 2; OnLButtonDown 3 2 c 145 50; ");
  EXPECT_EQ(parts.mouse.state, MouseState::Idle);  // the mark took the press
  EXPECT_EQ(press(180, 50), "OnLButtonDown 3 2 c 180 50; ");
  EXPECT_EQ(data->rows[1].values[2], XValue::ofInt(0));
  EXPECT_EQ(parts.mouse.state, MouseState::Pressed);
}

TEST_F(MousePress, AnEdgeIsDraggedRatherThanAHeaderPressed) {
  EXPECT_EQ(press(80, 10), "OnLButtonDown 2 -1 b 80 10; ");
  services.repaints = 0;
  mouse.move({90, 300});
  EXPECT_EQ(headers(), "a:16-86 b:86-146 c:146-206");
  EXPECT_EQ(services.repaints, 1);
  EXPECT_EQ(release(90, 300), "OnLButtonUp 6 -1  90 300; ");
  EXPECT_EQ(services.repaints, 2);
  EXPECT_FALSE(window.captured);
  mouse.move({120, 10});
  EXPECT_EQ(headers(), "a:16-86 b:86-146 c:146-206");
  EXPECT_EQ(data->sorts, 0);
  parts.settings.Resize = 0;
  press(90, 10);
  EXPECT_EQ(column("b").header.borderStyle, border::sunkenInner);
  release(90, 10);
  EXPECT_EQ(data->sort, u"+b");
}

TEST_F(MousePress, ASortIsTakenBackByReleasingElsewhere) {
  press(100, 10);
  mouse.move({100, 50});
  EXPECT_EQ(column("b").header.borderStyle, border::raisedInner);
  EXPECT_EQ(release(100, 50), "OnLButtonUp 3 2 b 100 50; ");
  EXPECT_EQ(data->sorts, 0);
  EXPECT_FALSE(window.captured);

  press(100, 10);
  mouse.move({100, 50});
  mouse.move({100, 12});
  EXPECT_EQ(column("b").header.borderStyle, border::sunkenInner);
  data->whenSorted = [this] { services.log += "sorted; "; };
  EXPECT_EQ(release(100, 12), "sorted; OnLButtonUp 2 -1 b 100 12; ");
  EXPECT_EQ(column("b").header.borderStyle, border::raisedInner);
  EXPECT_EQ(column("b").header.sortMark, 1);
}

TEST_F(MousePress, LosingTheFocusGivesTheCaptureBack) {
  press(100, 10);
  mouse.endPress();
  EXPECT_FALSE(window.captured);
  EXPECT_EQ(column("b").header.borderStyle, border::raisedInner);
  release(100, 10);
  EXPECT_EQ(data->sorts, 0);
  press(76, 10);
  mouse.endPress();
  EXPECT_FALSE(window.captured);
  mouse.move({90, 10});
  EXPECT_EQ(headers(), "a:16-76 b:76-136 c:136-196");
}

// A press whose release went to somebody else ends when the next one begins, and when the window goes.
TEST_F(MousePress, APressWithoutARelease) {
  press(100, 10);
  press(150, 10);
  EXPECT_EQ(column("b").header.borderStyle, border::raisedInner);
  press(100, 50);
  EXPECT_EQ(column("c").header.borderStyle, border::raisedInner);
  EXPECT_FALSE(window.captured);
  EXPECT_EQ(release(150, 10), "OnLButtonUp 2 -1 c 150 10; ");
  EXPECT_EQ(data->sorts, 0);
  press(76, 10);
  press(100, 50);
  mouse.move({90, 50});
  EXPECT_EQ(headers(), "a:16-76 b:76-136 c:136-196");
  parts.settings.DragDrop = drag_drop::block;
  for (const Point header : {Point{76, 10}, Point{100, 10}}) {
    press(header.x, header.y);
    EXPECT_TRUE(window.captured);
    EXPECT_EQ(parts.mouse.state, MouseState::Pressed);
    mouse.windowDestroyed();
    EXPECT_FALSE(window.captured);
    EXPECT_EQ(parts.mouse.state, MouseState::Idle);
    mouse.move({90, 10});
    EXPECT_EQ(headers(), "a:16-76 b:76-136 c:136-196");
    EXPECT_EQ(column("b").header.borderStyle, border::raisedInner);
  }
}

TEST_F(MousePress, ADoubleClickEdits) {
  EXPECT_EQ(twice(100, 50), "OnEnter b 2; OnLButtonDblClk 3 2 b 100 50; ");
  EXPECT_TRUE(editors.active());
  services.answers[EventId::OnExit] = XValue::ofInt(3);
  EXPECT_EQ(twice(30, 50), "OnLButtonDblClk 3 2 a 30 50; ");  // a column without an editor
  EXPECT_EQ(twice(220, 50), "OnLButtonDblClk 6 -1  220 50; ");
  EXPECT_EQ(twice(5, 50), "OnLButtonDblClk 1 2  5 50; ");
  mouse.leftDouble({100, 30});  // row mode has no cell to edit
  EXPECT_EQ(services.take(), "OnLButtonDblClk 3 1 b 100 30; ");
  press(30, 30);
  services.take();
  mouse.leftDouble({100, 50});  // not the focus cell
  EXPECT_EQ(services.take(), "OnLButtonDblClk 3 2 b 100 50; ");
  EXPECT_FALSE(editors.active());
  column("b").child.editable = u"False";
  EXPECT_EQ(twice(100, 50), "");
}

TEST_F(MousePress, TheRightButtonOnlyTells) {
  window.focus = test::FakeWindow::Focus::Elsewhere;
  mouse.rightDown({100, 50});
  mouse.rightUp({5, 5});
  mouse.rightDouble({220, 50});
  EXPECT_EQ(services.take(),
            "OnRButtonDown 3 2 b 100 50; OnRButtonUp 1 -2  5 5; OnRButtonDblClk 6 -1  220 50; ");
  EXPECT_EQ(window.focusCalls, 0);
  parts.focus.state = FocusState::Outside;
  mouse.rightDown({100, 50});
  EXPECT_EQ(window.focusCalls, 1);
  EXPECT_EQ(focus(), "1 a");
  services.take();
  openEditor();
  mouse.rightDown({30, 50});
  EXPECT_EQ(services.take(), "OnExit b 1 1; OnRButtonDown 3 2 a 30 50; ");
  EXPECT_FALSE(editors.active());
}

TEST_F(MousePress, AnOwnDragIsTheWholePress) {
  gestures.logs = true;
  EXPECT_EQ(press(30, 30), "clear; OnLButtonDown 3 1 a 30 30; ");
  parts.settings.DragDrop = drag_drop::rows;
  EXPECT_EQ(press(30, 30), "drag; clear; OnLButtonDown 3 1 a 30 30; ");
  gestures.drags = true;
  EXPECT_EQ(press(100, 50), "drag; OnLButtonDown 3 2 b 100 50; ");
  EXPECT_EQ(focus(), "1 a");
  EXPECT_EQ(press(100, 10), "OnLButtonDown 2 -1 b 100 10; ");
  parts.settings.DragDrop = drag_drop::block;
  EXPECT_EQ(press(100, 50), "OnSelChange b 2; clear; OnSelChanged b 2; OnLButtonDown 3 2 b 100 50; ");
}

TEST_F(MousePress, AMoveOfThreePixelsMayStartABlock) {
  parts.settings.DragDrop = drag_drop::rows | drag_drop::block;
  gestures.logs = true;
  press(220, 50);
  EXPECT_EQ(parts.mouse.state, MouseState::Pressed);
  mouse.move({222, 48});
  EXPECT_EQ(services.take(), "");
  EXPECT_EQ(parts.mouse.state, MouseState::Pressed);
  mouse.move({222, 47});
  EXPECT_EQ(services.take(), "block 220 50; ");
  EXPECT_EQ(parts.mouse.state, MouseState::Idle);
  gestures.blocks = true;
  press(100, 50);
  services.repaints = 0;
  mouse.move({97, 50});
  EXPECT_EQ(services.take(), "block 100 50; ");
  EXPECT_EQ(parts.mouse.state, MouseState::Block);
  EXPECT_EQ(services.repaints, 1);
  release(97, 50);
  EXPECT_EQ(parts.mouse.state, MouseState::Idle);
  parts.settings.DragDrop = drag_drop::rows;
  press(100, 50);
  services.take();
  mouse.move({100, 60});
  EXPECT_EQ(services.take(), "");
  EXPECT_EQ(parts.mouse.state, MouseState::Idle);
}

TEST_F(MousePress, TheTreeBoxAfterTheSelection) {
  gestures.logs = true;
  editors.setNodeTarget([this](RowNode& row) { services.log += "toggle " + std::to_string(row.row) + "; "; });
  parts.config.tree.rowMode = RowMode::Tree;
  column("a").hasTree = true;
  for (const std::int32_t row : {2, 5}) {
    parts.rows.find(row)->level = 1;
    parts.rows.find(row)->state = RowState::Collapsed;
  }
  EXPECT_EQ(press(24, 50), "OnSelChange a 2; toggle 2; clear; OnSelChanged a 2; OnLButtonDown 3 2 a 24 50; ");
  EXPECT_EQ(press(24, 50), "toggle 2; clear; OnLButtonDown 3 2 a 24 50; ");
  EXPECT_EQ(press(50, 50), "clear; OnLButtonDown 3 2 a 50 50; ");
  EXPECT_EQ(press(24, 70), "OnSelChange a 3; clear; OnSelChanged a 3; OnLButtonDown 3 3 a 24 70; ");
  window.size.height = 115;  // row 5 shows partly: the press scrolls it up
  EXPECT_EQ(press(24, 110),
            "OnSelChange a 5; toggle 5; clear; OnSelChanged a 5; OnLButtonDown 3 5 a 24 110; ");
  EXPECT_EQ(parts.page.TopOrdinal, 2);
}

TEST_F(MousePress, TheCursorUnderThePointer) {
  column("b").view.cursor = 2;
  window.pointerPlace = {window.origin.x + 100, window.origin.y + 50};
  parts.settings.DragDrop = drag_drop::block;
  gestures.drags = true;
  mouse.showCursor();
  EXPECT_EQ(window.cursor, Cursor::Beam);
  EXPECT_EQ(parts.eval.ExprRow, 2);
  parts.settings.DragDrop = drag_drop::rows;
  mouse.showCursor();
  EXPECT_EQ(window.cursor, Cursor::SizeAll);
}

}  // namespace
}  // namespace tessera
