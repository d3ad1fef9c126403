// How the grid shares the focus and the keys with the rest of its dialog.

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <gtest/gtest.h>

#include "qt/qt_desk.h"

namespace tessera::test {
namespace {

class MenuBarTest : public testing::Test {
 protected:
  MenuBarTest() {
    bar.addMenu("&File")->addAction("&Open");
    bar.show();
    desk.grid().setFocus();
    desk.grid().setColumnPosition("name");
  }
  void openBar() {
    desk.takeEvents();
    desk.tapAlt();
    ASSERT_TRUE(bar.hasFocus());
    const std::string told = desk.takeText();
    EXPECT_TRUE(told.empty() || told == "OnKeyDown(18, 0); ") << told;
  }
  void openEditAndBar() {
    desk.type("x");
    openBar();
  }

  QtDesk desk{"editors.xml"};
  QMenuBar bar{desk.grid().window()};
};

TEST_F(MenuBarTest, OnlyBorrowsTheKeysOfAnEdit) {
  openEditAndBar();
  desk.key(Qt::Key_Escape);
  EXPECT_TRUE(desk.editBox().hasFocus());
  EXPECT_EQ(desk.takeText(), "");
  desk.type("y");
  desk.key(Qt::Key_Return);
  EXPECT_EQ(desk.cell(1, 1), "xy");
}

TEST_F(MenuBarTest, MayHandTheFocusOn) {
  openEditAndBar();
  desk.after().setFocus();
  EXPECT_EQ(desk.takeText(), "OnExit(\"name\", 1, \"Anchor\"); OnKillFocus(); ");
  EXPECT_EQ(desk.cell(1, 1), "x");
  desk.grid().setFocus();
  openBar();
  desk.after().setFocus();
  EXPECT_EQ(desk.takeText(), "OnKillFocus(); ");
  desk.before().setFocus();
  EXPECT_EQ(desk.takeText(), "") << "once is enough";
}

// A command of the menu builds the grid anew, and there is no edit to come back to.
TEST_F(MenuBarTest, GivesTheFocusBackToTheGridWhenTheEditIsOver) {
  openEditAndBar();
  desk.grid().refresh();
  desk.key(Qt::Key_Escape);
  EXPECT_TRUE(desk.view().hasFocus());
  EXPECT_EQ(desk.takeText(), "");
  desk.after().setFocus();
  EXPECT_EQ(desk.takeText(), "OnKillFocus(); ");
}

// Whoever remembers the box as the one that had the focus, as Qt does for a window.
TEST(Focus, IsTheGridsWhenItIsGivenToABoxWithoutAnEdit) {
  QtDesk desk("editors.xml");
  desk.editBox().setFocus(Qt::OtherFocusReason);
  EXPECT_TRUE(desk.view().hasFocus());
  EXPECT_EQ(desk.takeText(), "OnSetFocus(); ");
}

class LonelyTest : public testing::TestWithParam<bool> {};

// Nothing else in the window takes a Tab.
TEST_P(LonelyTest, TabAtTheEndEndsTheEditAndStays) {
  const bool back = GetParam();
  QtDesk desk("editors.xml");
  desk.before().setFocusPolicy(Qt::NoFocus);
  desk.after().setFocusPolicy(Qt::NoFocus);
  desk.grid().setFocus();
  desk.grid().setRowPosition(back ? 1 : 7);
  desk.grid().setColumnPosition(back ? "name" : "fixed");
  const auto tab = [&] {
    desk.key(back ? Qt::Key_Backtab : Qt::Key_Tab, back ? Qt::ShiftModifier : Qt::NoModifier);
  };
  desk.grid().activateEdit();
  desk.type("z");
  desk.takeEvents();
  desk.answer(EventId::OnExit, 1);
  tab();
  EXPECT_TRUE(desk.editIsOpen() && desk.editBox().hasFocus()) << "the program keeps it open";
  desk.answer(EventId::OnExit, {});
  tab();
  EXPECT_FALSE(desk.editIsOpen());
  EXPECT_TRUE(desk.view().hasFocus());
  EXPECT_EQ(back ? desk.cell(1, 1) : desk.cell(7, 12), "z");
  tab();
  EXPECT_TRUE(desk.view().hasFocus());
  EXPECT_EQ(desk.grid().columnPosition(), back ? "name" : "fixed");
  EXPECT_EQ(desk.takeText().find("OnKillFocus"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Ways, LonelyTest, testing::Bool(),
                         [](const auto& back) { return back.param ? "Back" : "On"; });

struct ShortcutCase {
  int key;
  Qt::KeyboardModifiers held;
  bool inGrid;  // whether the grid keeps it from the program's shortcuts
  bool inEdit;
};

TEST(Shortcuts, OfTheProgramDoNotTakeWhatTheGridNeeds) {
  const ShortcutCase rows[] = {
      {Qt::Key_Left, {}, true, true},
      {Qt::Key_Left, Qt::AltModifier, false, false},
      {Qt::Key_PageUp, Qt::ControlModifier, true, true},
      {Qt::Key_C, Qt::ControlModifier, true, true},
      {Qt::Key_S, Qt::ControlModifier, false, false},
      {Qt::Key_Escape, {}, false, true},
      {Qt::Key_Return, {}, false, true},
      {Qt::Key_Enter, Qt::KeypadModifier, false, true},
      {Qt::Key_Delete, Qt::ControlModifier, false, true},
  };
  QtDesk desk("editors.xml");
  desk.grid().setFocus();
  for (const ShortcutCase& row : rows) {
    EXPECT_EQ(desk.claims(row.key, row.held), row.inGrid) << row.key << ' ' << row.held;
  }
  desk.type("x");
  ASSERT_TRUE(desk.editBox().hasFocus());
  for (const ShortcutCase& row : rows) {
    EXPECT_EQ(desk.claims(row.key, row.held), row.inEdit) << row.key << ' ' << row.held;
  }
}

}  // namespace
}  // namespace tessera::test
