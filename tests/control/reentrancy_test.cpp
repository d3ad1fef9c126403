// Handlers may call back into the grid from any event.

#include "tests/control/control_fixture.h"

namespace tessera {
namespace {

using namespace test;

class Reentrancy : public ControlTest {
 protected:
  // Two columns, the first with an expression that does not compile.
  static std::u16string withExpression(std::u16string_view expression) {
    std::u16string text = twoColumns;
    text.insert(text.find(u"text"), u"color=\"@" + std::u16string(expression) + u"\" ");
    return text;
  }
};

TEST_F(Reentrancy, OtherColumnsSetWhileColumnsAreRead) {
  addData(3);
  open();
  events.inside = [this] { control.put_ColumnInfo(u"<GRID><COLUMN id=\"only\"/></GRID>"); };
  control.put_ColumnInfo(XString(withExpression(u"(")));
  EXPECT_EQ(events.take(), "OnError 4 Expression Error; ");
  ASSERT_EQ(control.parts().config.columns.count(), 1);
  EXPECT_EQ(control.parts().config.columns.head()->value().id, u"only");
}

TEST_F(Reentrancy, RefreshInsideAnErrorOfTheSameText) {
  addData(3);
  open();
  events.inside = [this] { control.Refresh(); };
  control.put_ColumnInfo(XString(withExpression(u")")));
  EXPECT_EQ(control.parts().config.columns.count(), 2);
  EXPECT_EQ(page(), "1-3 top 1 of 3 focus 1 a");
}

TEST_F(Reentrancy, DataSetGoesInsideAnError) {
  addData(3);
  open();
  events.inside = [this] { control.put_DataID(u""); };
  control.put_ColumnInfo(XString(withExpression(u"*")));
  EXPECT_EQ(control.parts().link.dataSet(), nullptr);
  control.Refresh();
  control.windowResized();
}

TEST_F(Reentrancy, WindowGoesInsideAnError) {
  addData(3);
  open();
  events.inside = [this] { control.windowDestroyed(); };
  control.put_ColumnInfo(XString(withExpression(u"/")));
  EXPECT_EQ(control.parts().window, nullptr);
  control.windowCreated(window);
  EXPECT_EQ(page(), "1-3 top 1 of 3 focus 1 a");
}

TEST_F(Reentrancy, WindowGoesInsideTheErrorOfItsCreation) {
  addData(3);
  control.put_DataID(u"data");
  control.put_ColumnInfo(u"<GRID><COLUMN/></GRID>");
  events.inside = [this] { control.windowDestroyed(); };
  auto shortLived = std::make_unique<FakeWindow>();
  control.put_Enable(VARIANT_FALSE);
  control.windowCreated(*shortLived);
  EXPECT_TRUE(shortLived->enabled);
  EXPECT_EQ(control.parts().window, nullptr);
}

TEST_F(Reentrancy, IndicatorSetInsideItsOwnError) {
  addData(3);
  open();
  events.inside = [this] { control.put_IndicatorInfo(u"<I width=\"40\"/>"); };
  control.put_IndicatorInfo(u"<I width=\"30\" color=\"@(\"/>");
  const GridParts& parts = control.parts();
  EXPECT_EQ(parts.config.columns.head()->value().view.rect.left, parts.config.indicator.width);
  // The one set last is there whole, with nothing of the other.
  events.inside = [this] { control.put_IndicatorInfo(u"<I width=\"50\"/>"); };
  control.put_IndicatorInfo(u"<I width=\"30\" color=\"@(\" bgcolor=\"red\"/>");
  EXPECT_EQ(parts.config.indicator.width, 50);
  EXPECT_EQ(parts.config.indicator.backColor, screen().face);
  events.inside = [this] { control.put_BackgroundInfo(u"<B/>"); };
  control.put_BackgroundInfo(u"<B bordercolor=\"@(\" bgcolor=\"red\"/>");
  EXPECT_EQ(parts.config.background.backColor, screen().window);
}

// The sort makes the rows anew, not the columns that are being read.
TEST_F(Reentrancy, RowsSortedInsideAnError) {
  const auto data = addData(3);
  open();
  events.inside = [&] {
    data->SetSortExpr(u"-A");
    data->ApplySort();
  };
  control.put_ColumnInfo(XString(withExpression(u"(")));
  EXPECT_EQ(control.parts().config.columns.count(), 2);
  EXPECT_EQ(page(), "1-3 top 1 of 3 focus 3 a");
}

// What a Refresh inside of the reading has freed is compiled again.
TEST_F(Reentrancy, RefreshWhileAnIndicatorIsRead) {
  addData(3);
  open();
  events.inside = [this] { control.Refresh(); };
  control.put_IndicatorInfo(u"<I color=\"@IIF(A>1,'red','#010000')\" bgcolor=\"@(\"/>");
  EvalState state;
  for (const auto& [row, color] : {std::pair(1, 1u), {2, 255u}}) {
    state.ExprRow = row;
    EXPECT_EQ(control.parts().config.indicator.effectiveTextColor(state), color);
  }
}

TEST_F(Reentrancy, ListenerLeavesInsideItsEvent) {
  EventLog other;
  const std::uint32_t cookie = control.events().connect(&other);
  events.inside = [&] { control.events().disconnect(cookie); };
  control.ReportError(ErrorCode::MenuInfo);
  EXPECT_EQ(other.take(), "");
}

}  // namespace
}  // namespace tessera
