// Composed characters, as Korean is typed.

#include <gtest/gtest.h>

#include "qt/qt_desk.h"

namespace tessera::test {
namespace {

class InputMethodTest : public testing::Test {
 protected:
  void focusOn(const char* colid) {
    desk.grid().setFocus();
    desk.grid().setColumnPosition(colid);
    desk.takeEvents();
  }

  // Characters in the midst of their composition are in front of it.
  int caret() { return desk.editBox().inputMethodQuery(Qt::ImCursorRectangle).toRect().center().x(); }

  QtDesk desk{"editors.xml"};
};

TEST_F(InputMethodTest, TheFirstCharacterOpensTheEditorAndIsKept) {
  focusOn("name");
  desk.compose("ㅎ", "");
  ASSERT_TRUE(desk.editIsOpen());
  EXPECT_TRUE(desk.editBox().hasFocus());
  EXPECT_EQ(desk.editBox().text(), "") << "it takes the place of the old text";
  EXPECT_GT(caret(), 3) << "it is seen";
  EXPECT_EQ(desk.takeText(), "OnEnter(\"name\", 1); ");
  desk.compose("하", "");
  desk.compose("한", "");
  desk.compose("ㄱ", "한");
  EXPECT_EQ(desk.editBox().text(), "한");
  const int behindBoth = caret();
  desk.compose("", "");
  EXPECT_LT(caret(), behindBoth);
  desk.compose("", "글");
  EXPECT_EQ(desk.takeText(), "OnChar(); OnChar(); ");
  desk.key(Qt::Key_Return);
  EXPECT_FALSE(desk.editIsOpen());
  EXPECT_EQ(desk.cell(1, 1), "한글");
}

TEST_F(InputMethodTest, EnterAndEscapeInACompositionDoNotEndTheEdit) {
  focusOn("name");
  for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
    desk.compose("하", "");
    const int behind = caret();
    desk.takeEvents();
    desk.key(key);
    EXPECT_TRUE(desk.editIsOpen());
    EXPECT_EQ(desk.takeText(), "");
    EXPECT_EQ(desk.cell(1, 1), "Anchor");
    EXPECT_EQ(caret() < behind, key == Qt::Key_Escape) << "Escape drops what is being composed";
  }
  desk.compose("", "하");
  desk.key(Qt::Key_Return);
  EXPECT_FALSE(desk.editIsOpen());
  EXPECT_EQ(desk.cell(1, 1), "하");
}

TEST_F(InputMethodTest, NumericEditorsAndCellsWithoutEditorsTakeNoComposition) {
  focusOn("qty");
  desk.compose("ㅎ", "");
  ASSERT_TRUE(desk.editIsOpen());
  EXPECT_EQ(desk.editBox().displayText(), "3");
  desk.compose("하", "");
  desk.compose("", "하");
  EXPECT_EQ(desk.editBox().displayText(), "3");
  desk.takeEvents();
  desk.compose("", "7");
  EXPECT_EQ(desk.editBox().displayText(), "7") << "as keyboards on the screen type";
  EXPECT_EQ(desk.takeText(), "OnChar(); ");
  desk.compose("ㅎ", "5하");
  EXPECT_EQ(desk.editBox().displayText(), "75");
  desk.key(Qt::Key_Escape);
  focusOn("paid");
  desk.compose("ㅎ", "");
  desk.compose("", "하");
  EXPECT_FALSE(desk.editIsOpen());
  EXPECT_EQ(desk.takeText(), "");
}

// Corrections of what stands there already are typed over it.
TEST_F(InputMethodTest, ReplacementsObeyLimitAndCase) {
  focusOn("name");
  desk.grid().activateEdit();
  desk.key(Qt::Key_End);
  desk.retype(-3, 3, "kerabcdefgh");
  EXPECT_EQ(desk.editBox().text(), "Anckerabcd");
  desk.retype(-3, 3, "");
  EXPECT_EQ(desk.editBox().text(), "Anckera");
  desk.key(Qt::Key_Escape);
  focusOn("code");
  desk.grid().activateEdit();
  desk.retype(-2, 2, "xy");
  EXPECT_EQ(desk.editBox().text(), "AXY");
  desk.key(Qt::Key_Escape);
  focusOn("qty");
  desk.grid().activateEdit();
  desk.key(Qt::Key_End);
  desk.retype(-1, 1, "x");
  EXPECT_EQ(desk.editBox().text(), "3");
  EXPECT_FALSE(desk.editBox().hasSelectedText());
}

TEST_F(InputMethodTest, CharactersOutsideTheBasicPlaneStayWhole) {
  focusOn("name");
  const QString clef = QString::fromUcs4(U"\U0001D11E");
  desk.compose("", clef);
  desk.key(Qt::Key_unknown, {}, clef);
  EXPECT_EQ(desk.editBox().text(), clef + clef);
}

TEST_F(InputMethodTest, TheCellSaysWhichCharactersItWants) {
  focusOn("price");
  EXPECT_TRUE(desk.view().inputMethodHints() & Qt::ImhLatinOnly);
  desk.grid().setIme(1);
  focusOn("name");
  EXPECT_FALSE(desk.view().inputMethodHints() & Qt::ImhLatinOnly);
}

}  // namespace
}  // namespace tessera::test
