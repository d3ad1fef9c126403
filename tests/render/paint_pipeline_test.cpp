#include "render/paint_pipeline.h"

#include <algorithm>

#include "render/paint_fixture.h"

namespace tessera {
namespace {

class Pipeline : public PaintFixture {
 protected:
  Pipeline() {
    config.indicator.width = 20;
    ColumnRecord& column = addColumn(u"V");
    column.summary.text = u"sum";
    column.header.sortMark = 1;
    column.header.sortBitmapUp = Glyph::SortUp;
    settings.ViewSummary = SummaryBand::Bottom;
    bind({u"V"}, {{u"a"}});
  }
};

TEST_F(Pipeline, LayersOfASmallGrid) {
  focus.FocusRow = rows.first();
  focus.FocusColumn = config.columns.head();
  const PaintResult result = paint();
  EXPECT_TRUE(result.painted);
  EXPECT_FALSE(result.editorPlace || result.parkEditor);
  const Lines expected{
      // Background: the table and the first column's cells have its colour.
      "fill 0,0,400,100 ffffff",
      // Rows, header band, summary band.
      "line 19,19 119,19 119,39 19,39 19,19 808080 1",
      "text 23,23,117,37 at 67,23 000000 \"a\"",
      "fill 20,0,120,20 d4d0c8",
      "edge 20,0,120,20 raised inner",
      "keyed 84,7,92,14 glyph208 0,0,8,7 00ff00",
      "text 23,3,117,17 at 67,3 000000 \"V\"",
      "fill 20,80,120,100 ffffff",
      "line 19,79 119,79 119,99 19,99 19,79 808080 1",
      "text 23,83,117,97 at 60,83 000000 \"sum\"",
      // Indicator: corner, row, summary.
      "fill 0,0,20,20 d4d0c8",
      "keyed 5,5,15,15 glyph214 0,0,10,10 00ff00",
      "edge 0,0,20,20 raised inner",
      "fill 0,20,20,40 d4d0c8",
      "edge 0,20,20,40 raised inner",
      "fill 0,80,20,100 d4d0c8",
      "edge 0,80,20,100 raised inner",
      // Selection: header, indicator, cell.
      "blend 21,1,118,18 0000ff 20",
      "blend 1,21,18,38 0000ff 20",
      "blend 21,21,119,39 0000ff 20",
      "focus 20,20,119,39",
  };
  EXPECT_EQ(canvas.lines(), expected);
}

TEST_F(Pipeline, OffMeansNothingIsDrawn) {
  settings.Draw = false;
  EXPECT_FALSE(paint().painted);
  EXPECT_EQ(canvas.lines(), Lines{});
  settings.Draw = true;
  settings.ColumnInfo = u"";
  EXPECT_FALSE(paint().painted);
  EXPECT_EQ(canvas.lines(), Lines{});
  fillWindowColor(canvas);
  EXPECT_EQ(canvas.lines(), (Lines{"fill 0,0,400,100 ffffff"}));
}

TEST_F(Pipeline, WithoutColumnsOrDataBandsStay) {
  link.releaseDataSet();
  EXPECT_TRUE(paint().painted);
  EXPECT_EQ(canvas.linesOf("text"), (Lines{"text 23,3,117,17 at 67,3 000000 \"V\""}));
  config.columns.removeAll();
  page.VisibleRows.clear();
  focus.CellMode = false;
  select({1});
  EXPECT_TRUE(paint().painted);
  EXPECT_EQ(canvas.lines(), (Lines{"fill 0,0,400,100 ffffff"}));
}

TEST_F(Pipeline, BackgroundPictureLiesUnderTheTable) {
  config.background.imageHandle = std::make_shared<Bitmap>(40, 30);
  config.background.imageMode = image_mode::placed | image_mode::transparent;
  config.background.align = align::right | align::bottom;
  config.background.backColor = rgb(1, 2, 3);
  paint();
  const Lines expected{"fill 0,0,400,100 010203", "fill 20,20,120,100 010203",
                       "keyed 80,70,120,100 40x30 0,0,40,30 none"};
  EXPECT_EQ(Lines(canvas.lines().begin(), canvas.lines().begin() + 3), expected);
  // The table is as wide as the widest view, at most the client.
  config.columns.head()->value().view.rect.right = 1000;
  paint();
  EXPECT_EQ(canvas.lines()[1], "fill 20,20,400,100 010203");
}

TEST_F(Pipeline, BackgroundPictureLiesUnderTheSummaryBand) {
  const FakeProgram ground([](EvalState& state, XValue& value) {
    value.setInt(state.ExprRow);
    return true;
  });
  config.background.imageHandle = std::make_shared<Bitmap>(40, 30);
  config.background.imageMode = image_mode::stretched;
  config.background.setDynamic(DynamicSlot::BackColor, &ground);
  config.columns.head()->value().summary.imageMode = image_mode::blended;
  config.columns.head()->value().summary.borderStyle = border::none;
  client.height = 50;  // the row reaches into the band
  eval.ExprRow = 0x70;
  // The rows are painted; the background still has the colour that it was given first.
  EXPECT_EQ(paintOnly("fill 0,0,400"), (Lines{"fill 0,0,400,50 700000"}));
  EXPECT_EQ(canvas.linesOf("surface"),
            (Lines{"surface fill 0,0,400,50 700000", "surface stretch 20,20,120,50 40x30"}));
  const Lines summary = paintFrom("copy");
  ASSERT_GE(summary.size(), 2u);
  EXPECT_EQ(summary[0], "copy 20,30,400,50 from 400x100 20,30");
  EXPECT_EQ(summary[1], "blend 20,30,120,50 ffffff 204");
  const Lines& all = canvas.lines();
  const auto place = [&all](const std::string& line) { return std::find(all.begin(), all.end(), line); };
  EXPECT_LT(place("text 23,23,117,37 at 67,23 000000 \"a\""), place(summary[0]));

  settings.ViewSummary = SummaryBand::Top;
  EXPECT_EQ(paintOnly("copy"), (Lines{"copy 20,20,400,40 from 400x100 20,20"}));
  settings.ViewSummary = SummaryBand::None;
  EXPECT_EQ(paintOnly("copy"), Lines{});
  settings.ViewSummary = SummaryBand::Bottom;
  config.background.imageMode = image_mode::solid;
  EXPECT_EQ(paintOnly("copy"), Lines{});
}

}  // namespace
}  // namespace tessera
