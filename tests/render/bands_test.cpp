#include "render/paint_fixture.h"

namespace tessera {
namespace {

class Bands : public PaintFixture {
 protected:
  void useIndicator(std::int32_t width) {
    config.indicator.width = width;
    config.indicator.borderStyle = border::none;
    config.indicator.backColor = rgb(1, 2, 3);
  }
};

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

}  // namespace
}  // namespace tessera
