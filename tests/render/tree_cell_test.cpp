#include <array>
#include <limits>

#include "render/paint_fixture.h"

namespace tessera {
namespace {

// Rows 1 (level 1) with 2 and 3 below it, and 4 (level 1, collapsed).
class TreeCell : public PaintFixture {
 protected:
  TreeCell() : column(addColumn(u"V")) {
    settings.ViewHeader = false;
    config.tree.rowMode = RowMode::Tree;
    column.hasTree = true;
    column.view.borderStyle = border::none;
    bind({u"V"}, {{u"a"}, {u"b"}, {u"c"}, {u"d"}, {u"hidden"}});
    rows.buildTree(true, std::array{1, 2, 2, 1, 2});
    rows.toggle(Row{4});
    showAll();
  }

  ColumnRecord& column;
};

TEST_F(TreeCell, LinesAndBoxes) {
  const Lines expected{// Row 1: the box, the stroke, to the first child, to the text, to the next sibling.
                       "line 3,6 10,6 808080 1", "line 11,6 11,13 808080 1", "line 3,14 11,14 808080 1",
                       "line 3,6 3,13 808080 1", "line 5,10 9,10 000000 1", "line 25,19 25,19 808080 1",
                       "line 11,10 15,10 808080 1", "line 7,14 7,19 808080 1",
                       // Row 2: past its parent, to the text, down to row 3.
                       "line 7,20 7,39 808080 1", "line 25,30 29,30 808080 1", "line 25,20 25,39 808080 1",
                       // Row 3 is the last of its siblings.
                       "line 7,40 7,59 808080 1", "line 25,50 29,50 808080 1", "line 25,40 25,49 808080 1",
                       // Row 4: from above, the box, a plus, to the text.
                       "line 7,60 7,65 808080 1", "line 3,66 10,66 808080 1", "line 11,66 11,73 808080 1",
                       "line 3,74 11,74 808080 1", "line 3,66 3,73 808080 1", "line 5,70 9,70 000000 1",
                       "line 7,68 7,72 000000 1", "line 11,70 15,70 808080 1"};
  EXPECT_EQ(paintOnly("line"), expected);
}

TEST_F(TreeCell, WithoutLinesBoxesStay) {
  config.tree.hasLine = false;
  EXPECT_EQ(paintOnly("line"),
            (Lines{"line 3,6 10,6 808080 1", "line 11,6 11,13 808080 1", "line 3,14 11,14 808080 1",
                   "line 3,6 3,13 808080 1", "line 5,10 9,10 000000 1", "line 3,66 10,66 808080 1",
                   "line 11,66 11,73 808080 1", "line 3,74 11,74 808080 1", "line 3,66 3,73 808080 1",
                   "line 5,70 9,70 000000 1", "line 7,68 7,72 000000 1"}));
}

TEST_F(TreeCell, TextStartsBehindTheTree) {
  column.view.align = align::leftCenter;
  EXPECT_EQ(paintOnly("text"),
            (Lines{"text 21,3,97,17 at 21,3 000000 \"a\"", "text 35,23,97,37 at 35,23 000000 \"b\"",
                   "text 35,43,97,57 at 35,43 000000 \"c\"", "text 21,63,97,77 at 21,63 000000 \"d\""}));
  // Room for an icon, by the state of the node; the line to the first child starts below it.
  config.tree.imageEColumn = u"icon";
  EXPECT_EQ(paintOnly("text"),
            (Lines{"text 37,3,97,17 at 37,3 000000 \"a\"", "text 35,23,97,37 at 35,23 000000 \"b\"",
                   "text 35,43,97,57 at 35,43 000000 \"c\"", "text 21,63,97,77 at 21,63 000000 \"d\""}));
  EXPECT_EQ(canvas.linesOf("line 25,19"), Lines{});
}

TEST_F(TreeCell, GroupRowsTakeTheGroupCellAndTheirOwnDatasetColumn) {
  bind({u"V", u"CITY"}, {{u"a", u"Oslo"}, {u"b", u"Rome"}});
  rows.buildGroups({{1, 2, u"CITY"}}, true, std::array{1, 1});
  data->rows[0].level = 3;
  data->rows[1].level = 4;
  GroupCell group;
  group.level = 3;
  group.align = align::leftCenter;
  group.borderStyle = border::none;
  group.textColor = rgb(0xFF, 0, 0);
  column.groups.addTail(group);
  // Half a box less is a matter of data rows; a level without a group cell has its lines only.
  EXPECT_EQ(paintOnly("text"), (Lines{"text 21,3,97,17 at 21,3 ff0000 \"Oslo\""}));
  EXPECT_EQ(canvas.linesOf("line"), (Lines{"line 7,10 11,10 808080 1", "line 7,10 7,19 808080 1",
                                           "line 7,30 11,30 808080 1", "line 7,20 7,29 808080 1"}));
}

TEST_F(TreeCell, BoxesOfAnySizeCanBeConfigured) {
  constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
  config.tree.thumbSize = least;
  config.tree.hasLine = false;
  EXPECT_EQ(paintOnly("line"), Lines{});
}

TEST_F(TreeCell, LinesEndAtTheFixedZone) {
  addColumn(u"F").header.fix = true;
  config.columns.tail()->value().header.rect = {0, 0, 8, 20};
  config.columns.tail()->value().viewVisible = false;
  const Lines lines = paintOnly("line");
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines.front(), "line 8,6 10,6 808080 1");
  EXPECT_EQ(canvas.linesOf("line 7,"), Lines{});
  EXPECT_EQ(canvas.linesOf("line 3,"), Lines{});
}

TEST_F(TreeCell, PlainGridHasNoTree) {
  config.tree.rowMode = RowMode::Plain;
  EXPECT_EQ(paintOnly("line"), Lines{});
  EXPECT_EQ(canvas.linesOf("text").front(), "text 3,3,97,17 at 47,3 000000 \"a\"");
}

}  // namespace
}  // namespace tessera
