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

TEST_F(TreeCell, TextStartsBehindTheIconOfItsState) {
  column.view.align = align::leftCenter;
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

}  // namespace
}  // namespace tessera
