// Drop-down lists.

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

// Another program takes the focus while the pointer stands over the grid.
TEST_F(Lists, AnotherProgramTakesTheFocus) {
  stand(u"b");
  press(key::enter);
  services.take();
  window.pointerPlace = {150, 150};
  window.moveFocus(FakeWindow::Focus::Elsewhere);
  EXPECT_EQ(services.take(), "OnCloseUp b 1; OnKillFocus; ");
  EXPECT_EQ(parts.focus.state, FocusState::Outside);
}

TEST_F(Lists, AListThatCannotGiveTheFocusBackClosesAllTheSame) {
  stand(u"b");
  press(key::enter);
  services.take();
  window.refusesFocus = true;
  EXPECT_TRUE(editors.list().close(false));
  EXPECT_FALSE(editors.list().isOpen());
  EXPECT_FALSE(window.list->shown);
  EXPECT_EQ(services.take(), "OnCloseUp b 1; ");
}

// The fifth row shows one pixel: its cell comes up first, and the list stands where it is then.
TEST_F(Lists, TheCellComesIntoViewBeforeTheList) {
  stand(u"b");
  parts.focus.FocusRow = parts.rows.find(5);
  ASSERT_EQ(parts.page.VisibleIndex(parts.focus.FocusRow), 4);
  ASSERT_TRUE(editors.list().open());
  EXPECT_EQ(parts.page.TopOrdinal, 2);
  EXPECT_EQ(window.list->rect, (Rect{176, 200, 236, 277}));
  editors.list().close(false);
  window.size.width = 120;
  parts.updateBars(bar_bit::both);
  ASSERT_TRUE(editors.list().open());
  EXPECT_EQ(column("b").view.rect.left, 16);
  EXPECT_EQ(window.list->rect.left, 116);
}

TEST_F(Lists, RowsThatMoveUnderAnOpenList) {
  struct Row {
    const char* what;
    std::function<void(GridTest&)> act;
    const char* events;
    std::vector<std::string> writes;
  };
  const Row table[] = {
      {"a row above goes", [](GridTest& t) { t.deleteRow(1); }, "", {"2 2"}},
      {"a row below goes", [](GridTest& t) { t.deleteRow(4); }, "", {"3 2"}},
      {"a row comes above", [](GridTest& t) { t.data->InsertRow(1); }, "", {"4 2"}},
      {"a row comes in its place", [](GridTest& t) { t.data->InsertRow(3); }, "", {"4 2"}},
      {"the row itself goes", [](GridTest& t) { t.deleteRow(3); }, "OnCloseUp b 3; ", {}},
      {"rows change places", [](GridTest& t) { t.data->ApplySort(); }, "OnCloseUp b 3; ", {}},
      {"refresh", [](GridTest& t) { t.refresh(); }, "OnCloseUp b 3; ", {}},
  };
  for (const Row& row : table) {
    SCOPED_TRACE(row.what);
    setRows(5);
    window.moveFocus(FakeWindow::Focus::Grid);
    stand(u"b", 3);
    press(key::enter);
    services.take();
    writes.clear();
    row.act(*this);
    EXPECT_EQ(services.take(), row.events);
    EXPECT_EQ(window.list->shown, *row.events == 0);
    if (window.list->shown) {
      window.list->choice = 4;
      press(key::enter);
    }
    EXPECT_EQ(writes, row.writes);
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

// The search for the codes' data set runs the host, whose refresh makes the column anew.
TEST_F(Lists, ARefreshInsideTheSearchOpensNothing) {
  class Refreshing : public LookupServices {
   public:
    explicit Refreshing(GridTest& test) : test_(test) {}
    std::shared_ptr<DataSetControl> findDataSet(const XString& id) override {
      test_.refresh();
      return LookupServices::findDataSet(id);
    }

   private:
    GridTest& test_;
  } refreshing(*this);
  refreshing.dataSets["codes"] = codes;
  DropListController other(parts, services, refreshing);
  stand(u"c");
  EXPECT_FALSE(other.open());
  EXPECT_EQ(column("c").child.lookupDataset, nullptr);
}

}  // namespace
}  // namespace tessera::test
