#include "render/paint_fixture.h"

namespace tessera {
namespace {

class Bands : public PaintFixture {
 protected:
  // The lines of one header, border and all.
  Lines headerLines() { return paintFrom("fill 0,0,100,20 d4d0c8"); }
  void useIndicator(std::int32_t width) {
    config.indicator.width = width;
    config.indicator.borderStyle = border::none;
    config.indicator.backColor = rgb(1, 2, 3);
  }
};

TEST_F(Bands, Header) {
  addColumn(u"Name;unit").viewVisible = false;
  EXPECT_EQ(headerLines(),
            (Lines{"fill 0,0,100,20 d4d0c8", "edge 0,0,100,20 raised inner",
                   "text 3,3,97,10 at 36,-4 000000 \"Name\"", "text 3,10,97,20 at 36,10 000000 \"unit\""}));
  settings.ViewHeader = false;
  EXPECT_EQ(headerLines(), Lines{});
}

TEST_F(Bands, HeaderBoxTakesRoomAtItsSideOnly) {
  ColumnRecord& column = addColumn(u"abc");
  column.header.showCheck = true;
  const struct {
    std::int32_t align;
    bool checked;
    bool enable;
    Lines expected;
  } cases[] = {
      {18,
       false,
       true,
       {"text 3,3,97,17 at 40,3 000000 \"abc\"", "fill 3,3,17,17 ffffff",
        "keyed 3,3,17,17 glyph223 0,0,14,14 00ff00"}},
      {17,
       true,
       true,
       {"text 20,3,97,17 at 20,3 000000 \"abc\"", "fill 3,3,17,17 ffffff",
        "keyed 3,3,17,17 glyph224 0,0,14,14 00ff00"}},
      {20,
       true,
       false,
       {"text 3,3,80,17 at 59,3 000000 \"abc\"", "fill 83,3,97,17 d4d0c8",
        "keyed 83,3,97,17 glyph224 0,0,14,14 00ff00"}},
  };
  for (const auto& test : cases) {
    column.header.align = test.align;
    column.header.checked = test.checked;
    settings.Enable = test.enable;
    Lines lines = headerLines();
    lines.erase(lines.begin(), lines.begin() + 2);
    EXPECT_EQ(lines, test.expected) << test.align;
  }
}

TEST_F(Bands, SummaryStandsAtItsSideOfTheRows) {
  ColumnRecord& column = addColumn(u"V");
  column.summary.text = u"1234";
  column.summary.displayFormat = u"#,##0";
  column.summary.borderStyle = border::none;
  column.view.rect = {0, 0, 100, 15};
  addColumn(u"W").view.rect = {100, 0, 200, 30};
  bind({u"V"}, {{u"a"}});
  EXPECT_EQ(paintOnly("text 3,73"), Lines{});
  settings.ViewSummary = SummaryBand::Bottom;
  EXPECT_EQ(paintOnly("text 3,73"), (Lines{"text 3,73,97,82 at 33,70 000000 \"1,234\""}));
  settings.ViewSummary = SummaryBand::Top;
  EXPECT_EQ(paintOnly("text 3,23"), (Lines{"text 3,23,97,32 at 33,20 000000 \"1,234\""}));
  column.viewVisible = false;
  EXPECT_EQ(paintOnly("text 3,23"), Lines{});
  column.viewVisible = true;
  link.releaseDataSet();
  EXPECT_EQ(paintOnly("text 3,23"), Lines{});
}

TEST_F(Bands, IndicatorLight) {
  useIndicator(20);
  config.indicator.align = align::left | align::top;
  addColumn(u"V");
  EXPECT_EQ(paintOnly("keyed"), (Lines{"keyed 5,5,15,15 glyph213 0,0,10,10 00ff00"}));
  bind({u"V"}, {});
  EXPECT_EQ(paintOnly("keyed"), (Lines{"keyed 5,5,15,15 glyph214 0,0,10,10 00ff00"}));
  for (const FocusState state : {FocusState::Grid, FocusState::Editor, FocusState::List}) {
    focus.state = state;
    EXPECT_EQ(paintOnly("keyed"), (Lines{"keyed 5,5,15,15 glyph212 0,0,10,10 00ff00"}));
  }
  settings.ViewHeader = false;
  EXPECT_EQ(paintOnly("keyed"), Lines{});
  settings.ViewHeader = true;
  for (const std::int32_t width : {0, IndicatorRecord::unset}) {
    useIndicator(width);
    EXPECT_EQ(paintOnly("keyed"), Lines{});
  }
}

TEST_F(Bands, IndicatorMarksFollowStatusAndSelection) {
  useIndicator(20);
  settings.ViewHeader = false;
  addColumn(u"V");
  bind({u"V"}, {{u"a"}, {u"b"}, {u"c"}, {u"d"}});
  for (std::size_t row = 0; row < 3; ++row) data->rows[row].status = static_cast<std::int32_t>(row + 1);
  data->rows[3].status = 7;
  const auto marks = [this] {
    std::string numbers;
    for (const std::string& line : paintOnly("keyed 5,")) {
      numbers += line.substr(line.find(" glyph") + 6, 3) + " ";
    }
    return numbers;
  };
  EXPECT_EQ(marks(), "218 217 220 ");
  EXPECT_EQ(canvas.linesOf("keyed").front(), "keyed 5,5,15,15 glyph218 0,0,10,10 00ff00");
  select({3, 2});
  EXPECT_EQ(marks(), "218 217 220 ");
  focus.CellMode = false;
  EXPECT_EQ(marks(), "218 215 221 ");
  focus.CellMode = true;
  focus.FocusRow = rows.find(1);
  EXPECT_EQ(marks(), "219 217 220 ");
  EXPECT_EQ(canvas.linesOf("fill 0,60,20,80"), (Lines{"fill 0,60,20,80 010203"}));
}

TEST_F(Bands, IndicatorNumbers) {
  useIndicator(20);
  config.indicator.indexNumber = true;
  settings.ViewSummary = SummaryBand::Top;
  addColumn(u"V").view.borderStyle = border::none;
  bind({u"V"}, {{u""}, {u""}});
  data->rows[0].status = rowInserted;
  page.VisibleRows.erase(page.VisibleRows.begin());
  EXPECT_EQ(paintFrom("keyed"), (Lines{"keyed 5,5,15,15 glyph214 0,0,10,10 00ff00", "fill 0,20,20,40 010203",
                                       "text 3,23,17,37 at 7,23 000000 \"S\"", "fill 0,40,20,60 010203",
                                       "text 3,43,17,57 at 7,43 000000 \"2\""}));
  settings.ViewSummary = SummaryBand::Bottom;
  EXPECT_EQ(paintOnly("text 3,"),
            (Lines{"text 3,23,17,37 at 7,23 000000 \"2\"", "text 3,83,17,97 at 7,83 000000 \"S\""}));
  config.indicator.indexNumber = false;
  EXPECT_EQ(paintOnly("text 3,"), Lines{});
}

}  // namespace
}  // namespace tessera
