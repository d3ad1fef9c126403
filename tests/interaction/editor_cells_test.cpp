// Drop-down lists, check marks and radio buttons.

#include "geometry/hit_test.h"
#include "interaction/cell_buttons.h"
#include "interaction/check_cells.h"
#include "tests/interaction/interaction_fixture.h"

namespace tessera::test {
namespace {

// Column b is a combo of five items, c looks its texts up in the data set "codes".
class Lists : public GridTest {
 protected:
  Lists() {
    setColumns("a 0 60 0 20\nb 60 120 0 20\nc 120 180 0 20", [](GridTest& test) {
      test.column("a").child.type = CellKind::Edit;
      ChildSpec& combo = test.column("b").child;
      combo.type = CellKind::Combo;
      for (const auto& [text, code] : {std::pair{u"One", u"1"},
                                       {u"Two", u"2"},
                                       {u"Three", u"3"},
                                       {u"Also two", u"2"},
                                       {u"Five", u"5"}}) {
        combo.comboItems.addTail({text, code});
      }
      ChildSpec& lookup = test.column("c").child;
      lookup.type = CellKind::Lookup;
      lookup.lookupDataId = u"codes";
      lookup.lookupCode = u"CODE";
      lookup.lookupText = u"NAME";
    });
    ColumnStore store;
    store.addColumn({u"CODE"});
    store.addColumn({u"NAME"});
    codes = std::make_shared<MemoryDataSet>(std::move(store));
    codes->appendRows(2);
    codes->SetTextByName(1, u"CODE", u"k");
    codes->SetTextByName(1, u"NAME", u"Known");
    codes->SetTextByName(2, u"CODE", u"o");
    codes->SetTextByName(2, u"NAME", u"Other");
    info.dataSets["codes"] = codes;
    data->SetTextByName(1, u"b", u"3");
    data->SetTextByName(2, u"b", u"2");
    data->SetTextByName(1, u"c", u"o");
    writes.clear();
  }
  void stand(const char16_t* id, std::int32_t row = 1) {
    focus.setColumnPosition(id);
    focus.setRowPosition(row);
    services.take();
  }
  std::string items() const {
    std::string text;
    for (const XString& item : window.list->items) text += item.toUtf8() + ' ';
    return text + std::to_string(window.list->choice);
  }

  std::shared_ptr<MemoryDataSet> codes;
};

TEST_F(Lists, ItemsAndTheFirstChoice) {
  struct Row {
    const char16_t* column;
    std::int32_t row;
    const char* items;
  };
  const Row table[] = {
      {u"b", 1, "One Two Three Also two Five 2"},
      {u"b", 2, "One Two Three Also two Five 3"},  // of two alike the last
      {u"b", 3, "One Two Three Also two Five 0"},  // no such code
      {u"c", 1, "Known Other 1"},
      {u"c", 2, "Known Other -1"},
  };
  for (const Row& row : table) {
    stand(row.column, row.row);
    press(key::enter);
    EXPECT_EQ(items(), row.items);
    EXPECT_TRUE(window.list->shown);
    EXPECT_EQ(parts.focus.state, FocusState::List);
    const std::string cell = XString(row.column).toUtf8() + ' ' + std::to_string(row.row);
    EXPECT_EQ(services.take(), "OnDropDown " + cell + "; OnKeyDown 13 0; ");
    press(key::escape);
    EXPECT_EQ(services.take(), "OnCloseUp " + cell + "; OnKeyDown 27 0; ");
    EXPECT_EQ(window.focus, FakeWindow::Focus::Grid);
    EXPECT_FALSE(window.list->shown);
  }
  EXPECT_TRUE(writes.empty()) << "Escape leaves the cells";
}

TEST_F(Lists, AChoiceIsWritten) {
  stand(u"b");
  press(key::enter);
  services.take();
  press(key::down);
  press(key::down);
  press(key::enter);
  EXPECT_EQ(services.take(), "OnKeyDown 40 0; OnKeyDown 40 0; OnCloseUp b 1; OnKeyDown 13 0; ");
  EXPECT_EQ(cellText(1, "b"), "5");
  stand(u"c");
  press(key::enter);
  window.list->choice = 0;
  services.take();
  window.list->owner.listClicked();
  EXPECT_EQ(services.take(), "OnCloseUp c 1; ");
  EXPECT_EQ(cellText(1, "c"), "k");
  EXPECT_EQ(parts.focus.state, FocusState::Grid);
}

// Nothing is chosen where the code is unknown: Enter then has nothing to write, and must not empty the cell.
TEST_F(Lists, WithoutAChoiceALookupStaysUp) {
  stand(u"c", 2);
  press(key::enter);
  press(key::enter);
  EXPECT_TRUE(editors.list().isOpen());
  EXPECT_EQ(cellText(2, "c"), "c2");
  press(key::escape);
  EXPECT_FALSE(editors.list().isOpen());
  EXPECT_TRUE(writes.empty());
}

TEST_F(Lists, Places) {
  struct Row {
    const char* what;
    std::int32_t shownItems;
    std::int32_t screenHeight;
    SummaryBand summary;
    bool header;
    Rect place;
  };
  // The window's origin is at 100, 100 and an item is 15 high.
  const Row table[] = {
      {"below the cell", 5, 1080, SummaryBand::None, true, {176, 160, 236, 237}},
      {"three lines", 3, 1080, SummaryBand::None, true, {176, 160, 236, 207}},
      {"room for more than there are", 9, 1080, SummaryBand::None, true, {176, 160, 236, 237}},
      {"no line", -1, 1080, SummaryBand::None, true, {176, 160, 236, 162}},
      {"just on the screen", 5, 237, SummaryBand::None, true, {176, 160, 236, 237}},
      {"above the cell", 5, 236, SummaryBand::None, true, {176, 63, 236, 140}},
      {"below the summary band", 5, 1080, SummaryBand::Top, true, {176, 180, 236, 257}},
      {"without a header", 5, 1080, SummaryBand::None, false, {176, 140, 236, 217}},
  };
  for (const Row& row : table) {
    SCOPED_TRACE(row.what);
    stand(u"b", 2);
    parts.settings.ViewSummary = row.summary;
    parts.settings.ViewHeader = row.header;
    window.screen.height = row.screenHeight;
    column("b").child.showItemCount = row.shownItems;
    ASSERT_TRUE(editors.list().open());
    EXPECT_EQ(window.list->rect, row.place);
    editors.list().close(false);
  }
}

TEST_F(Lists, WhatKeepsAListShut) {
  stand(u"b");
  column("b").child.editable = u"false";
  EXPECT_FALSE(editors.list().open());
  stand(u"a");
  EXPECT_FALSE(editors.list().open());
  stand(u"c");
  info.dataSets.clear();
  EXPECT_FALSE(editors.list().open()) << "no such data set";
  info.dataSets["codes"] = codes;
  EXPECT_TRUE(editors.list().open()) << "it has come since";
  editors.list().close(false);
  focus.setColumnPosition(u"");
  EXPECT_FALSE(editors.list().open());
}

TEST_F(Lists, LosingTheFocus) {
  struct Row {
    const char* what;
    Point pointer;
    const char* events;
    FocusState state;
  };
  const Row table[] = {
      {"a press on the grid", {150, 150}, "OnCloseUp b 1; ", FocusState::Grid},
      {"a press elsewhere", {5, 5}, "OnCloseUp b 1; OnKillFocus; ", FocusState::Outside},
  };
  for (const Row& row : table) {
    SCOPED_TRACE(row.what);
    stand(u"b");
    press(key::enter);
    services.take();
    window.pointerPlace = row.pointer;
    const bool inside = row.state == FocusState::Grid;
    window.moveFocus(inside ? FakeWindow::Focus::Grid : FakeWindow::Focus::Elsewhere);
    EXPECT_EQ(services.take(), row.events);
    EXPECT_EQ(parts.focus.state, row.state);
    EXPECT_FALSE(window.list->shown);
    EXPECT_TRUE(writes.empty());
    window.moveFocus(FakeWindow::Focus::Grid);
  }
}

TEST_F(Lists, AMoveClosesTheListWithoutAChoice) {
  stand(u"b");
  press(key::enter);
  ++window.list->choice;
  services.take();
  focus.setRowPosition(3);
  EXPECT_EQ(services.take(), "OnCloseUp b 1; OnSelChange b 3; OnSelChanged b 3; ");
  EXPECT_TRUE(writes.empty());
}

TEST_F(Lists, TheArrowOfTheFocusCell) {
  stand(u"b");
  EXPECT_FALSE(editors.activateCell(90, 30, position("b"), parts.rows.find(1)));
  EXPECT_FALSE(editors.activateCell(130, 50, position("b"), parts.rows.find(2)));
  EXPECT_TRUE(editors.activateCell(130, 30, position("b"), parts.rows.find(1)));
  EXPECT_TRUE(editors.list().isOpen());
}

// What a listener does while the choice is written must neither close the list twice nor write elsewhere.
TEST_F(Lists, TheWriteMayRunTheHost) {
  stand(u"b");
  press(key::enter);
  services.take();
  whenWritten = [this] { window.setFocus(); };
  press(key::down);
  press(key::enter);
  EXPECT_EQ(services.take(), "OnKeyDown 40 0; OnCloseUp b 1; OnKeyDown 13 0; ");
  EXPECT_EQ(writes, std::vector<std::string>{"1 2"});
  press(key::enter);
  EXPECT_TRUE(editors.list().isOpen());
}

TEST_F(Lists, AChoiceForColumnsThatAreGoneIsDropped) {
  stand(u"b");
  press(key::enter);
  ++window.list->choice;
  refresh();
  press(key::enter);
  EXPECT_TRUE(writes.empty());
  EXPECT_FALSE(window.list->shown);
}

// --- Values that flip
// ------------------------------------------------------------------------------------------

XValue realOf(float value) {
  XValue result;
  result.setFloat(value);
  return result;
}

TEST(CheckValues, Table) {
  const auto text = [](const char16_t* value) { return XValue::ofText(value); };
  struct Row {
    XValue value, byMouse, byKey, radio;
    bool isSet;
  };
  const Row table[] = {
      {text(u"T"), text(u"F"), text(u"F"), text(u"T"), true},
      {text(u"True"), text(u"F"), text(u"F"), text(u"T"), true},
      {text(u"F"), text(u"T"), text(u"T"), text(u"T"), false},
      {text(u"False"), text(u"T"), text(u"T"), text(u"T"), false},
      {text(u""), text(u"F"), text(u"T"), text(u"T"), true},
      {text(u"f"), text(u"F"), text(u"T"), text(u"T"), true},
      {text(u"x"), text(u"F"), text(u"T"), text(u"T"), true},
      {XValue::ofInt(0), XValue::ofInt(1), XValue::ofInt(1), XValue::ofInt(1), false},
      {XValue::ofInt(-3), XValue::ofInt(0), XValue::ofInt(0), XValue::ofInt(1), true},
      {XValue::ofInt64(0), XValue::ofInt(1), XValue::ofInt(1), XValue::ofInt(1), false},
      {XValue::ofInt64(std::int64_t{1} << 40), XValue::ofInt(0), XValue::ofInt(0), XValue::ofInt(1), true},
      {XValue::ofDouble(0), XValue::ofDouble(1), XValue::ofDouble(1), XValue::ofDouble(1), false},
      {realOf(0.5), XValue::ofDouble(0), XValue::ofDouble(0), XValue::ofDouble(1), true},
      {XValue::ofBool(true), XValue::ofBool(true), XValue::ofBool(true), XValue::ofBool(true), false},
      {XValue(), XValue(), XValue(), XValue(), false},
      {XValue::null(), XValue::null(), XValue::null(), XValue::null(), false},
  };
  for (std::size_t row = 0; row < std::size(table); ++row) {
    EXPECT_EQ(checkedByMouse(table[row].value), table[row].byMouse) << row;
    EXPECT_EQ(checkedByKey(table[row].value), table[row].byKey) << row;
    EXPECT_EQ(radioSetValue(table[row].value), table[row].radio) << row;
    EXPECT_EQ(isRadioSet(table[row].value), table[row].isSet) << row;
  }
}

TEST(CheckPlaces, MarksAndButtons) {
  const Rect cell{100, 40, 200, 60};
  struct Row {
    CellKind kind;
    std::int32_t align;
    const char16_t* label;
    Rect mark;  // 14 by 14 with a pixel of slack above and below
  };
  const Row table[] = {
      {CellKind::Check, align::left, u"", {103, 42, 117, 58}},
      {CellKind::Check, align::right, u"", {183, 42, 197, 58}},
      {CellKind::Check, align::center, u"", {142, 42, 158, 58}},
      {CellKind::Check, align::center, u"LABEL", {103, 42, 117, 58}},
      {CellKind::Radio, align::centerCenter, u"", {142, 42, 158, 58}},
      {CellKind::Radio, align::centerCenter, u"LABEL", {103, 42, 117, 58}},
      {CellKind::Radio, align::right, u"LABEL", {183, 42, 197, 58}},
      {CellKind::Edit, align::left, u"", {}},
  };
  for (const Row& row : table) {
    ColumnRecord column;
    column.child.type = row.kind;
    column.child.checkBitmapOn = Glyph::CheckOn;
    column.child.radioBitmapOn = Glyph::CheckOn;
    column.view.align = row.align;
    (row.kind == CellKind::Check ? column.child.checkText : column.child.radioText) = row.label;
    EXPECT_EQ(markRect(column, cell), row.mark) << static_cast<int>(row.kind) << ' ' << row.align;
  }
  ColumnRecord column;
  column.child.type = CellKind::Lookup;
  EXPECT_EQ(buttonRect(column, cell), (Rect{183, 41, 200, 59}));
  column.child.type = CellKind::Edit;
  EXPECT_TRUE(buttonRect(column, cell).empty());
  column.child.subType = EditKind::PopupFix;
  EXPECT_FALSE(buttonRect(column, cell).empty());
}

// Column a holds numbers under a check mark, b texts, c numbers under radio buttons.
class Marks : public GridTest {
 protected:
  Marks() {
    setColumns("a 0 60 0 20\nb 60 120 0 20\nc 120 180 0 20", [](GridTest& test) {
      for (const char* id : {"a", "b"}) {
        test.column(id).child.type = CellKind::Check;
        test.column(id).child.checkBitmapOn = Glyph::CheckOn;
      }
      test.column("c").child.type = CellKind::Radio;
      test.column("c").child.radioBitmapOn = Glyph::RadioOn;
    });
    setFormats({{u"a", columnInteger}, {u"b"}, {u"c", columnInteger}}, 3);
    for (std::int32_t row = 1; row <= 3; ++row) {
      data->SetTextByName(row, u"a", u"0");
      data->SetTextByName(row, u"b", u"x");
      data->SetTextByName(row, u"c", u"0");
    }
    services.take();
    writes.clear();
  }
  bool pressMark(const char* id, std::int32_t row) {
    const Rect cell = cellRect(parts.frame(), column(id), row - 1);
    return editors.activateCell((cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2, position(id),
                                parts.rows.find(row));
  }
};

TEST_F(Marks, KeysFlipChecks) {
  press(key::space);
  EXPECT_EQ(cellText(1, "a"), "1");
  press(key::enter);
  EXPECT_EQ(cellText(1, "a"), "0");
  column("a").child.editable = u"false";
  press(key::space);
  press(key::enter);
  EXPECT_EQ(cellText(1, "a"), "0");
  EXPECT_EQ(services.take(), "OnKeyDown 32 0; OnKeyDown 13 0; OnKeyDown 32 0; OnKeyDown 13 0; ");
}

TEST_F(Marks, PressesFlipAnyCell) {
  EXPECT_TRUE(pressMark("a", 3));
  EXPECT_EQ(cellText(3, "a"), "1");
  EXPECT_TRUE(pressMark("b", 2));
  EXPECT_EQ(cellText(2, "b"), "F") << "by mouse only false becomes true";
  EXPECT_TRUE(pressMark("b", 2));
  EXPECT_EQ(cellText(2, "b"), "T");
  EXPECT_FALSE(editors.activateCell(18, 30, position("a"), parts.rows.find(1))) << "beside the mark";
  EXPECT_EQ(focusText(), "1 a") << "the mouse moves the focus";
}

TEST_F(Marks, ARadioIsTheOnlyOneOfItsColumn) {
  EXPECT_TRUE(pressMark("c", 2));
  EXPECT_EQ(cellText(2, "c"), "1");
  writes.clear();
  EXPECT_TRUE(pressMark("c", 2)) << "it was done already";
  EXPECT_TRUE(writes.empty());
  focus.setColumnPosition(u"c");
  focus.setRowPosition(3);
  column("c").child.editable = u"false";
  press(key::enter);
  EXPECT_EQ(cellText(2, "c") + cellText(3, "c"), "01") << "the key does not ask whether it may";
  EXPECT_EQ(writes, (std::vector<std::string>{"2 3", "3 3"}));
  EXPECT_TRUE(parts.settings.Draw);
}

TEST_F(Marks, ARadioOverTextsClearsThemAll) {
  column("b").child.type = CellKind::Radio;
  for (std::int32_t row = 1; row <= 3; ++row) data->SetTextByName(row, u"b", u"F");
  writes.clear();
  setRadio(parts, services, column("b"), 2);
  EXPECT_EQ(cellText(1, "b") + cellText(2, "b") + cellText(3, "b"), "0T0");
}

// A write runs the host; one that takes the ground away ends the walk through the rows.
TEST_F(Marks, TheWalkOfARadioMayBeCutShort) {
  data->SetTextByName(1, u"c", u"1");
  whenWritten = [this] { refresh(); };
  EXPECT_TRUE(pressMark("c", 2));
  EXPECT_EQ(cellText(2, "c"), "0");
  data->SetTextByName(3, u"c", u"1");
  whenWritten = [this] { deleteRow(3); };
  EXPECT_TRUE(pressMark("c", 2));
  EXPECT_TRUE(parts.settings.Draw);
}

}  // namespace
}  // namespace tessera::test
