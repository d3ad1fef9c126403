#include <array>
#include <limits>

#include "render/paint_fixture.h"

namespace tessera {
namespace {

// Indicator 20 wide, columns at 20 and 120, header and rows 20 high, three rows.
class FocusPainter : public PaintFixture {
 protected:
  FocusPainter() {
    config.indicator.width = 20;
    addColumn(u"A");
    addColumn(u"B");
    bind({u"A", u"B"}, {{u"a", u"b"}, {u"c", u"d"}, {u"e", u"f"}});
  }

  ColumnRecord& last() { return config.columns.tail()->value(); }
  void selectRows(std::initializer_list<std::int32_t> numbers) {
    focus.CellMode = false;
    select(numbers);
  }
  void focusCell(std::int32_t row) {
    focus.CellMode = true;
    focus.FocusRow = rows.find(row);
    focus.FocusColumn = config.columns.tail();
  }
  // Tints and focus rectangles without colour and alpha.
  Lines marks() {
    paint();
    Lines found;
    for (const std::string& line : canvas.lines()) {
      if (line.starts_with("blend")) found.push_back(line.substr(0, line.find(' ', 6)));
      if (line.starts_with("focus")) found.push_back(line);
    }
    return found;
  }
};

TEST_F(FocusPainter, Alpha) {
  const struct {
    FocusState state;
    std::int32_t rate;
    const char* alpha;
  } cases[] = {{FocusState::Outside, 20, "20"}, {FocusState::Grid, 20, "51"},
               {FocusState::Editor, 20, "51"},  {FocusState::Outside, 100, "100"},
               {FocusState::Grid, 100, "255"},  {FocusState::Grid, 0, "0"},
               {FocusState::Outside, 300, "44"}};
  selectRows({1});
  for (const auto& test : cases) {
    focus.state = test.state;
    settings.SelectedColorRate = test.rate;
    EXPECT_EQ(paintOnly("blend 20,20"), (Lines{std::string("blend 20,20,218,38 0000ff ") + test.alpha}));
  }
}

TEST_F(FocusPainter, RowInsetsFollowTheBorders) {
  const struct {
    std::int32_t view, indicator;
    Lines expected;
  } cases[] = {
      {1, 2, {"blend 20,40,218,58", "blend 1,41,18,58", "focus 20,40,219,59"}},
      {4, 4, {"blend 22,42,218,58", "blend 1,41,19,59", "focus 21,41,219,59"}},
      {0, 1, {"blend 22,42,217,57", "blend 2,41,18,58", "focus 21,41,218,58"}},
      {8, 0, {"blend 22,42,217,57", "blend 1,41,18,58", "focus 21,41,218,58"}},
  };
  selectRows({2});
  for (const auto& test : cases) {
    last().view.borderStyle = test.view;
    config.indicator.borderStyle = test.indicator;
    EXPECT_EQ(marks(), test.expected) << test.view << " " << test.indicator;
  }
}

TEST_F(FocusPainter, EverySelectedRowOfThePageIsTinted) {
  selectRows({3, 1});
  const Lines both{"blend 20,20,218,38", "blend 1,21,18,38", "blend 20,60,218,78", "blend 1,61,18,78",
                   "focus 20,60,219,79"};
  EXPECT_EQ(marks(), both);
  page.VisibleRows.erase(page.VisibleRows.begin());
  EXPECT_EQ(marks(), (Lines{"blend 20,40,218,58", "blend 1,41,18,58", "focus 20,40,219,59"}));
  settings.FocusRect = false;
  EXPECT_EQ(marks(), (Lines{"blend 20,40,218,58", "blend 1,41,18,58"}));
  settings.ViewHeader = false;
  settings.ViewSummary = SummaryBand::Top;
  client.height = 50;
  EXPECT_EQ(marks(), (Lines{"blend 20,40,218,48", "blend 1,41,18,48"}));
  client.height = 40;
  EXPECT_EQ(marks(), Lines{});
}

TEST_F(FocusPainter, CellInsetsFollowTheBorders) {
  const struct {
    std::int32_t view, header;
    Lines expected;
  } cases[] = {
      {1, 2, {"blend 121,1,218,18", "blend 1,41,18,58", "blend 121,41,219,59", "focus 120,40,219,59"}},
      {4, 4, {"blend 121,1,219,19", "blend 1,41,18,58", "blend 122,42,218,58", "focus 121,41,219,59"}},
      {0, 1, {"blend 121,1,218,18", "blend 1,41,18,58", "blend 122,42,217,57", "focus 121,41,218,58"}},
  };
  focusCell(2);
  for (const auto& test : cases) {
    last().view.borderStyle = test.view;
    last().header.borderStyle = test.header;
    EXPECT_EQ(marks(), test.expected) << test.view;
  }
  settings.ViewHeader = false;
  settings.FocusRect = false;
  EXPECT_EQ(marks(), (Lines{"blend 1,21,18,38", "blend 122,22,217,37"}));
}

TEST_F(FocusPainter, ButtonsOfCellsThatCanBeEdited) {
  const struct {
    CellKind kind;
    EditKind edit;
    const char16_t* editable;
    std::int32_t level;
    bool button;
  } cases[] = {{CellKind::Edit, EditKind::Plain, u"true", 0, false},
               {CellKind::Edit, EditKind::Popup, u"false", 0, true},
               {CellKind::Edit, EditKind::PopupFix, u"true", 0, true},
               {CellKind::Edit, EditKind::Popup, u"true", 1, false},
               {CellKind::Lookup, EditKind::Plain, u"true", 0, true},
               {CellKind::Lookup, EditKind::Plain, u"false", 0, false},
               {CellKind::Combo, EditKind::Plain, u"true", 1, false}};
  focusCell(2);
  for (const auto& test : cases) {
    last().child.type = test.kind;
    last().child.subType = test.edit;
    last().child.editable = test.editable;
    data->rows[1].level = test.level;
    EXPECT_EQ(paintOnly("fill 203,42,220,59").size(), test.button ? 1u : 0u);
    EXPECT_EQ(canvas.linesOf("blend 121,41,202,59").size(), test.button ? 1u : 0u)
        << "the tint ends at the button";
  }
  data->rows[1].level = 0;
  last().child.editable = u"true";
  last().child.comboItems.addTail({u"shown", u"d"});
  EXPECT_EQ(paintOnly("text 123,43,197,57").size(), 1u) << "the text leaves room for the button";
  last().view.rect.right = 130;
  // In a narrow cell it shows its middle, and nothing of the cell is left to tint.
  EXPECT_EQ(paintFrom("fill 120,42"),
            (Lines{"fill 120,42,130,59 d4d0c8", "keyed 120,42,130,59 glyph225 3,0,13,17 00ff00"}));
}

// A row is edited unless its level is above 0; in a tree the editor starts at the text.
TEST_F(FocusPainter, EditorPlaceByLevel) {
  last().child.type = CellKind::Edit;
  last().child.subType = EditKind::Popup;
  focusCell(2);
  editorOpen = true;
  for (const std::int32_t level : {-1, 0, 1}) {
    data->rows[1].level = level;
    EXPECT_EQ(paint().editorPlace.has_value(), level <= 0) << level;
  }
  last().child.subType = EditKind::Plain;
  data->rows[1].level = 0;
  config.tree.rowMode = RowMode::Tree;
  last().hasTree = true;
  rows.buildTree(true, std::array{1, 1, 1});
  EXPECT_EQ(paint().editorPlace, (Rect{137, 40, 219, 59}));
  rows.buildTree(false, std::array{1, 1, 2});
  EXPECT_EQ(paint().editorPlace, (Rect{141, 40, 219, 59}));
}

TEST_F(FocusPainter, EditorPlaceStaysWithinTheNumbers) {
  constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
  last().child.type = CellKind::Edit;
  last().view.rect.bottom = least;
  settings.ViewHeader = false;
  focusCell(1);
  editorOpen = true;
  EXPECT_EQ(paint().editorPlace, (Rect{120, 0, 219, least}));
}

TEST_F(FocusPainter, EditorOutOfViewIsParked) {
  last().child.type = CellKind::Edit;
  editorOpen = true;
  const auto parked = [this] {
    const PaintResult result = paint();
    EXPECT_EQ(result.editorPlace, std::nullopt);
    return result.parkEditor;
  };
  focusCell(1);
  page.VisibleRows.erase(page.VisibleRows.begin());
  EXPECT_TRUE(parked());
  EXPECT_EQ(marks(), (Lines{"blend 121,1,218,18"}));
  last().child.subType = EditKind::PopupFix;
  EXPECT_FALSE(parked());
  last().child.subType = EditKind::Popup;
  editorOpen = false;
  EXPECT_FALSE(parked());
  editorOpen = true;

  // Below the page's end.
  focusCell(3);
  client.height = 40;
  EXPECT_TRUE(parked());
  client.height = 100;
  EXPECT_FALSE(paint().parkEditor);

  // Behind the fixed zone, and wholly under its own button.
  last().view.rect = {100, 0, 137, 20};
  config.columns.head()->value().header.fix = true;
  EXPECT_TRUE(parked());
  last().view.rect = {100, 0, 120, 20};
  EXPECT_TRUE(parked());
}

}  // namespace
}  // namespace tessera
