// Opening the edit box and ending an edit.

#include "tests/interaction/interaction_fixture.h"

namespace tessera::test {
namespace {

using Opening = GridTest;

TEST_F(Opening, Triggers) {
  struct Row {
    const char* what;
    std::function<void(GridTest&)> act;
    bool asksEditable;
    const char* events;
    const char* text;
  };
  const Row table[] = {
      {"character", [](GridTest& t) { t.type(u"x"); }, true, "OnEnter a 1; OnChar; ", "x"},
      {"space", [](GridTest& t) { t.type(u" "); }, true, "OnEnter a 1; OnChar; ", " "},
      {"enter", [](GridTest& t) { t.press(key::enter); }, true, "OnEnter a 1; OnKeyDown 13 0; ", "a1"},
      {"end of a Tab", [](GridTest& t) { t.press(key::tabDone); }, false, "OnEnter a 1; OnKeyDown 255 0; ",
       "a1"},
      {"automation", [](GridTest& t) { t.editors.activateEdit(); }, false, "OnEnter a 1; ", "a1"},
      {"composition", [](GridTest& t) { t.editors.imeStarted(); }, false, "OnEnter a 1; ", "a1"},
  };
  for (const bool editable : {true, false}) {
    for (const Row& row : table) {
      SCOPED_TRACE(row.what + std::string(editable ? "" : ", not editable"));
      refresh();
      window.moveFocus(FakeWindow::Focus::Grid);
      column("a").child.editable = editable ? u"true" : u"FALSE";
      services.take();
      row.act(*this);
      const bool opens = editable || !row.asksEditable;
      EXPECT_EQ(editors.active(), opens);
      if (!opens) continue;
      EXPECT_EQ(services.take(), row.events);
      EXPECT_EQ(boxText(), row.text);
      EXPECT_EQ(editors.editText(), window.edit->content);
      EXPECT_EQ(window.focus, FakeWindow::Focus::Edit);
    }
  }
}

TEST_F(Opening, WhatOpensNothing) {
  const auto opens = [this] {
    const bool open = editors.active();
    editors.abandon();
    return open;
  };
  type(u"\x1b\r\t\x7f");
  EXPECT_FALSE(opens()) << "control characters";
  for (const CellKind kind :
       {CellKind::None, CellKind::Image, CellKind::Bar, CellKind::Check, CellKind::Combo}) {
    column("a").child.type = kind;
    type(u"x");
    press(key::tabDone);
    editors.activateEdit();
    EXPECT_FALSE(opens()) << static_cast<int>(kind);
  }
  column("a").child.type = CellKind::Edit;
  parts.config.tree.rowMode = RowMode::Tree;
  column("a").hasTree = true;
  type(u" ");
  EXPECT_FALSE(opens()) << "a blank in the tree column";
  type(u"x");
  EXPECT_TRUE(opens());
  letGoOfData();
  type(u"x");
  editors.activateEdit();
  EXPECT_FALSE(opens()) << "no data set to write to";
  destroyWindow();
  type(u"x");
  editors.activateEdit();
  editors.imeStarted();
  EXPECT_FALSE(opens()) << "no window";
}

TEST_F(Opening, AnOpenEditorIsNotOpenedAgain) {
  press(key::enter);
  type(u"typed");
  editors.activateEdit();
  editors.imeStarted();
  press(key::tabDone);
  EXPECT_EQ(boxText(), "typed");
  window.moveFocus(FakeWindow::Focus::Grid);
  editors.charArrived(u'x');
  editors.charArrived(13);
  EXPECT_EQ(boxText(), "typedx") << "what reaches the grid is meant for the box";
}

TEST_F(Opening, ADisabledGridOpensNothing) {
  parts.settings.Enable = false;
  type(u"x");
  editors.activateEdit();
  EXPECT_FALSE(editors.active());
  EXPECT_FALSE(window.edit->owner.editAllows(u'x')) << "nothing may enter a box that stands nowhere";
  column("a").child.subType = EditKind::PopupFix;
  EXPECT_FALSE(editors.openEditor(true));
  column("a").child.type = CellKind::Combo;
  EXPECT_FALSE(editors.list().open());
  EXPECT_EQ(services.take(), "");
}

TEST_F(Opening, TheBoxTakesTheColumnsWishes) {
  ChildSpec& child = column("a").child;
  child.inputType = input_type::password | input_type::upper;
  child.select = false;
  column("a").view.setFontSize(20);
  press(key::enter);
  EXPECT_TRUE(window.edit->masked);
  EXPECT_EQ(window.edit->letters, LetterCase::Upper);
  EXPECT_EQ(window.edit->selectionStart, 2);
  EXPECT_EQ(window.edit->selectionEnd, 2);
  EXPECT_EQ(window.edit->font, column("a").view.font);
  press(key::escape);
  child.inputType = input_type::lower;
  child.select = true;
  press(key::enter);
  EXPECT_FALSE(window.edit->masked);
  EXPECT_EQ(window.edit->letters, LetterCase::Lower);
  EXPECT_EQ(window.edit->selectionStart, 0);
  EXPECT_EQ(window.edit->selectionEnd, 2);
}

TEST_F(Opening, LimitsByColumnType) {
  struct Row {
    const char* what;
    ColumnFormat format;
    std::int32_t inputType;
    std::int32_t limitLength;
    std::int32_t decimal;
    const char16_t* text;
    const char* shown;
    std::int32_t limit;
    std::int32_t decimals;
  };
  const Row table[] = {
      {"text", {u"a", columnText, 0, 8}, 0, -1, -1, u"12345678", "12345678", 8, -1},
      {"text with a limit", {u"a", columnText, 0, 8}, 0, 3, -1, u"12345678", "123", 3, -1},
      {"a limit beyond the column's", {u"a", columnText, 0, 8}, 0, 9, -1, u"12345678", "12345678", 8, -1},
      {"numeric text", {u"a", columnText, 0, 8}, 1, -1, 1, u"1.25", "1.2", 8, 1},
      {"numeric text without a rule", {u"a", columnText, 0, 8}, 1, -1, -1, u"1.25", "1", 8, -1},
      {"decimal", {u"a", columnDecimal, 3, 9}, 0, -1, -1, u"1.255", "1.255", 9, 3},
      {"decimal with fewer digits", {u"a", columnDecimal, 3, 9}, 0, -1, 1, u"1.255", "1.2", 9, 1},
      {"decimal with too many", {u"a", columnDecimal, 2, 9}, 0, -1, 5, u"1.25", "1.25", 9, 2},
      {"whole", {u"a", columnInteger, 0, 9}, 0, -1, 4, u"125", "125", 9, 0},
      {"long", {u"a", columnLong, 0, 9}, 1, 2, 4, u"125", "12", 2, 0},
  };
  for (const Row& row : table) {
    SCOPED_TRACE(row.what);
    setFormats({row.format, {u"b"}, {u"c"}}, 3);
    data->SetTextByName(1, u"a", row.text);
    ChildSpec& child = column("a").child;
    child.inputType = row.inputType;
    child.limitLength = row.limitLength;
    child.decimal = row.decimal;
    ASSERT_TRUE(editors.openEditor(false));
    EXPECT_EQ(boxText(), row.shown);
    EXPECT_EQ(parts.editor.oldText, row.text);
    EXPECT_EQ(parts.editor.limit, row.limit);
    EXPECT_EQ(parts.editor.decimals, row.decimals);
  }
}

// Only the column's own word filters keys: a number column without it takes letters.
TEST_F(Opening, KeysAreFilteredByTheInputType) {
  setFormats({{u"a", columnDecimal, 2, 9}, {u"b"}, {u"c"}}, 3);
  press(key::enter);
  type(u"1x");
  EXPECT_EQ(boxText(), "1x");
  EXPECT_TRUE(window.edit->owner.editAllowsComposition());
  press(key::escape);
  column("a").child.inputType = input_type::numeric;
  press(key::enter);
  services.take();
  type(u"1x.2-53");
  EXPECT_EQ(boxText(), "1.25");
  EXPECT_EQ(services.take(), "OnChar; OnChar; OnChar; OnChar; ") << "a refused character says nothing";
  EXPECT_FALSE(window.edit->owner.editAllowsComposition());
}

TEST_F(Opening, Places) {
  press(key::enter);
  PaintResult paint;
  paint.editorPlace = Rect{16, 20, 75, 39};
  editors.place(paint);
  EXPECT_EQ(window.edit->rect, (Rect{16, 20, 75, 39}));
  PaintResult away;
  away.parkEditor = true;
  editors.place(away);
  EXPECT_EQ(window.edit->rect, parkedEditor);
  EXPECT_TRUE(editors.active());
  editors.place(paint);
  press(key::escape);
  EXPECT_EQ(window.edit->rect, parkedEditor);
  editors.place(paint);
  EXPECT_EQ(window.edit->rect, parkedEditor) << "a closed box stays away";
  PaintResult nothing;
  window.edit->rect = {};
  press(key::enter);
  editors.place(nothing);
  EXPECT_NE(window.edit->rect, parkedEditor);
  parts.focus.FocusRow = nullptr;
  editors.place(nothing);
  EXPECT_EQ(window.edit->rect, parkedEditor) << "no focus cell to stand at";
}

// --- The end of an edit
// ----------------------------------------------------------------------------------------

struct Ending {
  const char* what;
  std::function<void(GridTest&)> end;
  bool asksToStay;  // an answer 1 keeps the editor
  bool saves;       // any other answer but 3 saves
  const char* events;
};

const Ending endings[] = {
    {"enter", [](GridTest& t) { t.press(key::enter); }, true, true, "OnKeyDown 13 0; "},
    {"escape", [](GridTest& t) { t.press(key::escape); }, true, false, "OnKeyDown 27 0; "},
    {"down", [](GridTest& t) { t.press(key::down); }, true, true,
     "OnSelChange a 2; OnSelChanged a 2; OnKeyDown 40 0; "},
    {"page down", [](GridTest& t) { t.press(key::pageDown); }, true, true,
     "OnSelChange a 5; OnSelChanged a 5; OnKeyDown 34 0; "},
    {"row position", [](GridTest& t) { t.focus.setRowPosition(3); }, true, true,
     "OnSelChange a 3; OnSelChanged a 3; "},
    {"focus elsewhere", [](GridTest& t) { t.window.moveFocus(FakeWindow::Focus::Elsewhere); }, false, true,
     "OnKillFocus; "},
    {"current row moved", [](GridTest& t) { t.data->SetCurrentRow(2); }, false, true, ""},
};

TEST(Committing, EachAnswerToEachEnding) {
  for (const Ending& ending : endings) {
    for (const std::int32_t answer : {0, 1, 2, 3, 77}) {
      SCOPED_TRACE(ending.what + std::string(" answer ") + std::to_string(answer));
      struct Grid : GridTest {
        void TestBody() override {}
      } grid;
      grid.press(key::enter);
      grid.type(u"new");
      grid.services.take();
      grid.services.answers[EventId::OnExit] = XValue::ofInt(answer);
      ending.end(grid);
      const bool stays = ending.asksToStay && answer == 1;
      const bool saves = ending.saves && answer != 1 && answer != 3;
      const std::string events = grid.services.take();
      EXPECT_TRUE(events.starts_with("OnExit a 1 a1; ")) << events;
      if (stays) {
        EXPECT_EQ(events.find("OnSel"), std::string::npos);
      } else {
        EXPECT_EQ(events, std::string("OnExit a 1 a1; ") + ending.events);
      }
      EXPECT_EQ(grid.editors.active(), stays);
      EXPECT_EQ(grid.cellText(1, "a"), saves ? "new" : "a1");
      EXPECT_EQ(grid.writes.size(), saves ? 1u : 0u);
      EXPECT_EQ(grid.editors.editText().toUtf8(), stays ? "new" : "");
      EXPECT_EQ(grid.window.edit->rect == parkedEditor, true) << "never painted";
      if (std::string(ending.what) == "focus elsewhere") {
        EXPECT_EQ(grid.window.focus, FakeWindow::Focus::Elsewhere) << "the focus is not fetched back";
        EXPECT_EQ(grid.parts.focus.state, FocusState::Outside);
      } else {
        EXPECT_EQ(grid.window.focus, stays ? FakeWindow::Focus::Edit : FakeWindow::Focus::Grid);
        EXPECT_EQ(grid.parts.focus.state, stays ? FocusState::Editor : FocusState::Grid);
      }
    }
  }
}

using CommittingTest = GridTest;

TEST_F(CommittingTest, AnswersOfOtherTypesSave) {
  XValue answer;
  for (const VarType type : {VT_I2, VT_I8}) {
    answer.setInteger(type, 3);
    services.answers[EventId::OnExit] = answer;
    press(key::enter);
    type == VT_I2 ? this->type(u"x") : this->type(u"y");
    press(key::enter);
  }
  EXPECT_EQ(cellText(1, "a"), "y");
}

TEST_F(CommittingTest, KeysInTheBox) {
  press(key::enter);
  services.take();
  for (const std::int32_t key : {key::left, key::right, key::home, key::end, 46}) press(key);
  EXPECT_EQ(services.take(),
            "OnKeyDown 37 0; OnKeyDown 39 0; OnKeyDown 36 0; OnKeyDown 35 0; OnKeyDown 46 0; ");
  EXPECT_TRUE(editors.active());
  EXPECT_EQ(focusText(), "1 a");
  press(key::up);
  EXPECT_EQ(services.take(), "OnFirstUp; OnKeyDown 38 0; ") << "nowhere to go: the editor is not even asked";
  EXPECT_TRUE(editors.active());
}

TEST_F(CommittingTest, TheBoxGetsTheFocusBackWhenItStays) {
  press(key::enter);
  services.take();
  services.answers[EventId::OnExit] = XValue::ofInt(1);
  window.moveFocus(FakeWindow::Focus::Grid);
  EXPECT_TRUE(editors.active()) << "within the control nothing is lost";
  EXPECT_EQ(services.take(), "");
  EXPECT_FALSE(editors.commitBeforeMove());
  EXPECT_EQ(window.focus, FakeWindow::Focus::Edit);
  EXPECT_EQ(parts.focus.state, FocusState::Editor);
}

// A move that does not leave through the box must not carry the open editor to another cell.
TEST_F(CommittingTest, AKeyOfTheGridCommitsToo) {
  press(key::enter);
  type(u"new");
  window.moveFocus(FakeWindow::Focus::Grid);
  press(key::right);
  EXPECT_FALSE(editors.active());
  EXPECT_EQ(cellText(1, "a"), "new");
  EXPECT_EQ(cellText(1, "b"), "b1");
  EXPECT_EQ(focusText(), "1 b");
}

TEST_F(CommittingTest, NoPaintShowsTheGridHalfWay) {
  press(key::enter);
  std::int32_t holds = 0;
  window.gained = [&] {
    holds = parts.drawHolds;
    parts.settings.Draw = false;
    focus.focusGained();
  };
  press(key::enter);
  EXPECT_EQ(holds, 1);
  EXPECT_EQ(parts.drawHolds, 0);
  EXPECT_FALSE(parts.settings.Draw) << "what a listener has put meanwhile stays";
}

TEST_F(CommittingTest, ASecondCloseInsideTheFirstIsRefused) {
  press(key::enter);
  type(u"new");
  services.take();
  services.inside[EventId::OnExit] = [this] {
    focus.setRowPosition(5);
    EXPECT_FALSE(editors.tryCommit(CommitMode::FocusLost));
    window.moveFocus(FakeWindow::Focus::Elsewhere);
  };
  press(key::enter);
  EXPECT_EQ(services.take(), "OnExit a 1 a1; OnKillFocus; OnSetFocus; OnKeyDown 13 0; ");
  EXPECT_EQ(cellText(1, "a"), "new");
  EXPECT_EQ(focusText(), "1 a");
}

TEST_F(CommittingTest, WhatTheWriteSetsOffFindsItSettled) {
  press(key::enter);
  type(u"new");
  services.take();
  whenWritten = [this] { data->SetCurrentRow(4); };
  press(key::enter);
  EXPECT_EQ(services.take(), "OnExit a 1 a1; OnKeyDown 13 0; ");
  EXPECT_EQ(writes.size(), 1u);
  EXPECT_EQ(cellText(1, "a"), "new");
  EXPECT_EQ(cellText(4, "a"), "a4");
  EXPECT_FALSE(editors.active());
}

// --- Popup edits
// -----------------------------------------------------------------------------------------------

using Popups = GridTest;

TEST_F(Popups, EnterAsksForThePopupAfterTheText) {
  column("a").child.subType = EditKind::Popup;
  press(key::enter);
  type(u"new");
  services.take();
  std::string seen;
  services.inside[EventId::OnPopup] = [&] { seen = cellText(1, "a"); };
  press(key::enter);
  EXPECT_EQ(services.take(), "OnExit a 1 a1; OnPopup a 1 0; OnKeyDown 13 0; ");
  EXPECT_EQ(seen, "new");
  press(key::enter);
  services.take();
  services.answers[EventId::OnExit] = XValue::ofInt(3);
  press(key::enter);
  EXPECT_EQ(services.take(), "OnExit a 1 new; OnPopup a 1 0; OnKeyDown 13 0; ");
  press(key::enter);
  services.take();
  press(key::down);
  EXPECT_EQ(services.take().find("OnPopup"), std::string::npos) << "only Enter asks";
}

TEST_F(Popups, AFixedPopupHasNoBox) {
  column("a").child.subType = EditKind::PopupFix;
  press(key::enter);
  EXPECT_EQ(services.take(), "OnPopup a 1 0; OnKeyDown 13 0; ");
  type(u"x");
  press(key::tabDone);
  editors.imeStarted();
  EXPECT_EQ(services.take(), "OnKeyDown 255 0; ");
  EXPECT_TRUE(window.edit->sent.empty());
  column("a").child.editable = u"false";
  press(key::enter);
  EXPECT_EQ(services.take(), "OnKeyDown 13 0; ");
}

TEST_F(Popups, TheButtonOfTheFocusCell) {
  for (const EditKind kind : {EditKind::Popup, EditKind::PopupFix}) {
    for (const char* id : {"a", "b"}) column(id).child.subType = kind;
    const auto pressAt = [this](std::int32_t x, std::int32_t y, const char* id) {
      return editors.activateCell(x, y, position(id), parts.rows.find(1));
    };
    EXPECT_TRUE(pressAt(70, 30, "a"));
    EXPECT_EQ(services.take(), "OnPopup a 1 1; ");
    EXPECT_FALSE(pressAt(50, 30, "a")) << "left of the button";
    EXPECT_FALSE(pressAt(130, 30, "b")) << "another cell";
    column("a").child.editable = u"false";
    EXPECT_FALSE(pressAt(70, 30, "a"));
    column("a").child.editable = u"true";
  }
  EXPECT_FALSE(editors.activateCell(70, 30, nullptr, parts.rows.find(1)));
  EXPECT_FALSE(editors.activateCell(70, 30, position("a"), nullptr));
  EXPECT_EQ(services.take(), "");
}

TEST_F(Popups, TheFocusComesBackFromOutside) {
  column("a").child.subType = EditKind::PopupFix;
  services.inside[EventId::OnPopup] = [this] { window.moveFocus(FakeWindow::Focus::Elsewhere); };
  press(key::enter);
  EXPECT_EQ(window.focus, FakeWindow::Focus::Grid);
  EXPECT_EQ(services.take(), "OnPopup a 1 0; OnKillFocus; OnSetFocus; OnKeyDown 13 0; ");
}

}  // namespace
}  // namespace tessera::test
