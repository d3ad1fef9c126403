#include "control/error_table.h"
#include "tests/control/control_fixture.h"

namespace tessera {
namespace {

using namespace test;

class Properties : public ControlTest {};

TEST_F(Properties, OnlyVariantTrueKeepsABar) {
  VariantBool value = 0;
  for (VariantBool put : {VariantBool{1}, VARIANT_TRUE, VariantBool{2}}) {
    control.put_FixHScroll(put);
    control.get_FixHScroll(value);
    EXPECT_EQ(value, put == VARIANT_TRUE ? VARIANT_TRUE : VARIANT_FALSE) << put;
    control.put_FixVScroll(put);
    control.get_FixVScroll(value);
    EXPECT_EQ(value, put == VARIANT_TRUE ? VARIANT_TRUE : VARIANT_FALSE) << put;
  }
  control.put_Enable(1);
  control.get_Enable(value);
  EXPECT_EQ(value, VARIANT_TRUE);
}

TEST_F(Properties, EnableTellsTheHostOnlyWithAWindow) {
  struct Sink : PropertyNotifySink {
    void OnChanged(std::int32_t dispid) override { dispids.push_back(dispid); }
    std::vector<std::int32_t> dispids;
  } sink;
  control.propertyNotifySinks().connect(&sink);
  control.put_Enable(VARIANT_FALSE);
  control.windowCreated(window);
  EXPECT_FALSE(window.enabled);
  EXPECT_TRUE(sink.dispids.empty());
  control.put_Enable(VARIANT_TRUE);
  control.put_Enable(VARIANT_TRUE);
  EXPECT_TRUE(window.enabled);
  EXPECT_EQ(sink.dispids, std::vector<std::int32_t>{-514});
}

TEST_F(Properties, AmbientCodePage) {
  struct Case {
    XValue ambient;
    std::int32_t stored;
  };
  XValue unsigned949;
  unsigned949.setInteger(VT_UI4, 51949);
  XValue shiftJis;
  shiftJis.setInteger(VT_UI4, 932);
  XValue automatic;
  automatic.setInteger(VT_UI4, 50001);
  for (const Case& c : {Case{unsigned949, 949}, Case{shiftJis, 932}, Case{automatic, 0},
                        Case{XValue::ofInt(932), 0}, Case{XValue(), 0}}) {
    site.codePage = c.ambient;
    control.quickActivate();
    EXPECT_EQ(control.codePage(), c.stored);
  }
}

TEST_F(Properties, IndicatorRoomFollowsItsWidth) {
  addData(3);
  open();
  const auto left = [this] { return control.parts().config.columns.head()->value().view.rect.left; };
  EXPECT_EQ(left(), 16);  // an indicator that nobody configured gets its width with the window
  control.put_IndicatorInfo(u"<I width=\"30\"/>");
  EXPECT_EQ(left(), 30);
  control.put_IndicatorInfo(u"<I width=\"24\"/>");
  EXPECT_EQ(left(), 24);
  control.put_IndicatorInfo(u"<I color=\"red\"/>");
  EXPECT_EQ(left(), 24);
  control.put_IndicatorInfo(u"<I width=\"0\"/>");
  EXPECT_EQ(left(), 0);
  control.Refresh();
  EXPECT_EQ(left(), 0);
}

TEST_F(Properties, EmptyColumnInfoIsAnError) {
  addData(3);
  open();
  events.take();
  control.put_ColumnInfo(u"");
  EXPECT_EQ(events.take(), "OnError 0 Parsing Error, ColumnInfo; ");
  EXPECT_TRUE(control.parts().config.columns.empty());
}

TEST_F(Properties, UnboundControlKeepsWhatItHad) {
  addData(3);
  open();
  control.put_DataID(u"nobody");
  EXPECT_EQ(control.parts().config.columns.count(), 2);
  control.put_ColumnInfo(u"<GRID/>");
  EXPECT_EQ(control.parts().config.columns.count(), 2);
  EXPECT_EQ(events.take(), "");
  control.put_DataID(u"data");
  EXPECT_EQ(control.parts().config.columns.count(), 0);
}

TEST_F(Properties, FocusComesBackToItsColumn) {
  addData(3);
  open();
  FocusModel& focus = const_cast<GridParts&>(control.parts()).focus;
  focus.FocusColumn = ColumnList::nextOf(focus.FocusColumn);
  std::u16string other = twoColumns;
  other.insert(other.find(u"text"), u"color=\"red\" ");
  control.put_ColumnInfo(XString(other));
  EXPECT_EQ(page(), "1-3 top 1 of 3 focus 1 b");
}

TEST_F(Properties, AmbientFontAndDecimalsReachTheRecords) {
  addData(3);
  site.font = AmbientFont{u"Serif", 11, 700, true, false};
  open();
  const ColumnRecord& column = control.parts().config.columns.head()->value();
  EXPECT_EQ(column.view.font.face(), "Serif");
  EXPECT_EQ(column.header.fontSize, 11);
  EXPECT_EQ(column.view.fontStyle, font_style::bold | font_style::italic);
  EXPECT_EQ(control.parts().config.indicator.font.lfHeight, pointsToHeight(11));
}

TEST_F(Properties, BorderGoesToTheWindow) {
  control.windowCreated(window);
  EXPECT_EQ(window.border, WindowBorder::Sunken);
  control.put_BackgroundInfo(u"<B borderstyle=\"frame\"/>");
  EXPECT_EQ(window.border, WindowBorder::Frame);
  EXPECT_EQ(window.focusCalls, 1);
  control.put_BackgroundInfo(u"<B borderstyle=\"dotted\"/>");
  EXPECT_EQ(window.border, WindowBorder::Frame);
  EXPECT_EQ(window.focusCalls, 2);
}

TEST_F(Properties, EveryErrorHasItsText) {
  for (std::int32_t code = 0; code <= 13; ++code) {
    control.ReportError(static_cast<ErrorCode>(code));
    const std::string fired = events.take();
    EXPECT_EQ(fired.rfind("OnError " + std::to_string(code) + " ", 0), 0u) << fired;
  }
  control.ReportError(ErrorCode::TreeLevelValue);
  EXPECT_EQ(events.take(), "OnError 9 Tree Level Value is not Proper; ");
}

// A band that comes takes the place of a row, but not of the focus.
TEST_F(Properties, TheFocusRowStaysOnAPageThatShrinks) {
  addData(9);
  open();
  for (const std::int32_t band : {1, 2}) {
    control.put_ViewSummary(0);
    control.put_RowPosition(1);
    control.put_RowPosition(4);
    EXPECT_EQ(page(), "1-5 top 1 of 9 focus 4 a");
    control.put_ViewSummary(band);
    EXPECT_EQ(page(), "2-5 top 2 of 9 focus 4 a") << band;
  }
}

}  // namespace
}  // namespace tessera
