#include "render/column_painter.h"

#include "render/paint_fixture.h"
#include "rows/suppress.h"

namespace tessera {
namespace {

class ColumnPainter : public PaintFixture {
 protected:
  ColumnPainter() { settings.ViewHeader = false; }

  static void makePlain(ColumnRecord& column, ColorRef color) {
    column.view.borderStyle = border::none;
    column.view.backColor = color;
  }
  // The cells of the columns that makePlain() coloured.
  Lines cells() {
    Lines found;
    for (const std::string& line : paintOnly("fill")) {
      if (!line.ends_with("ffffff")) found.push_back(line);
    }
    return found;
  }
};

TEST_F(ColumnPainter, EqualRowsMakeOneTallCell) {
  ColumnRecord& column = addColumn(u"V");
  makePlain(column, 0);
  column.suppressRefs.addTail({u"V"});
  bind({u"V"}, {{u"A"}, {u"A"}, {u"B"}, {u"B"}});
  ResolveSuppress(config.columns, link);
  EXPECT_EQ(cells(), (Lines{"fill 0,0,100,40 000000", "fill 0,40,100,80 000000"}));
  EXPECT_EQ(canvas.linesOf("text").size(), 2u);

  // A page that starts inside the run, and ends inside one.
  page.VisibleRows.erase(page.VisibleRows.begin());
  page.VisibleRows.pop_back();
  const Lines single{"fill 0,0,100,20 000000", "fill 0,20,100,40 000000"};
  EXPECT_EQ(cells(), single);

  // Rows that do not follow each other in the data set; the page goes on below the client.
  bind({u"V"}, std::vector<std::vector<const char16_t*>>(9, {u"A"}));
  page.VisibleRows.erase(page.VisibleRows.begin() + 1);
  EXPECT_EQ(cells(), (Lines{"fill 0,0,100,20 000000", "fill 0,20,100,160 000000"}));
  column.suppressRefs.removeAll();
  EXPECT_EQ(cells().size(), 5u);
  column.suppressRefs.addTail({u"V"});
  ResolveSuppress(config.columns, link);

  // Cells that can be edited stand alone.
  column.child.type = CellKind::Edit;
  bind({u"V"}, {{u"A"}, {u"A"}});
  EXPECT_EQ(cells(), single);
}

TEST_F(ColumnPainter, LevelsChooseTheStyle) {
  ColumnRecord& column = addColumn(u"V");
  makePlain(column, 0);
  GroupCell group;
  group.level = 2;
  group.backColor = rgb(0, 0xFF, 0);
  group.borderStyle = border::none;
  column.groups.addTail(group);
  bind({u"V"}, {{u"a"}, {u"b"}, {u"c"}, {u"d"}, {u"e"}});
  data->rows[1].level = 2;   // has a group cell
  data->rows[2].level = 1;   // has none: the row keeps its place
  data->rows[3].level = -1;  // takes no place
  EXPECT_EQ(cells(), (Lines{"fill 0,0,100,20 000000", "fill 0,20,100,40 00ff00", "fill 0,60,100,80 000000"}));
  EXPECT_EQ(canvas.linesOf("text").back(), "text 3,63,97,77 at 47,63 000000 \"e\"");
}

TEST_F(ColumnPainter, ColumnsOutsideAreNotTouched) {
  const struct {
    std::int32_t headerLeft, headerRight, viewLeft, viewRight;
    Lines expected;
  } cases[] = {
      {0, 100, 0, 100, {}},
      {50, 150, 50, 150, {"fill 100,0,150,20 0000ff"}},
      {400, 500, 400, 500, {}},
      {399, 500, 399, 500, {"fill 399,0,500,20 0000ff"}},
      // One of the two spans is enough, yet a cell behind the zone draws nothing.
      {50, 150, 0, 100, {}},
      {0, 100, 50, 150, {"fill 100,0,150,20 0000ff"}},
  };
  for (const auto& test : cases) {
    config.columns.removeAll();
    ColumnRecord& fixed = addColumn(u"F");
    fixed.header.fix = true;
    ColumnRecord& scrolled = addColumn(u"V");
    makePlain(scrolled, rgb(0, 0, 0xFF));
    scrolled.header.rect = {test.headerLeft, 0, test.headerRight, 20};
    scrolled.view.rect = {test.viewLeft, 0, test.viewRight, 20};
    bind({u"V", u"F"}, {{u"a", u"b"}});
    EXPECT_EQ(cells(), test.expected) << test.headerLeft << " " << test.viewLeft;
  }
}

TEST_F(ColumnPainter, NoRowHeightPaintsNoRows) {
  ColumnRecord& column = addColumn(u"V");
  makePlain(column, 0);
  bind({u"V"}, {{u"a"}, {u"b"}});
  column.view.rect.bottom = 0;
  EXPECT_EQ(cells(), Lines{});
}

}  // namespace
}  // namespace tessera
