#include "interaction/column_resize.h"
#include "mouse_fixture.h"

namespace tessera {
namespace {

using test::columnsOf;
using test::headersOf;

// "id:left-right" of every view.
std::string viewsOf(const ColumnList& columns) {
  ColumnList views = columns;
  for (ColumnRecord& column : views) column.header.rect = column.view.rect;
  return headersOf(views);
}

class MouseResize : public test::MouseTest {
 protected:
  std::string headers() const { return headersOf(parts.config.columns); }
  ColumnResize resize{parts};
};

// The header of a is 16 to 76, of b 76 to 136, of c 136 to 196.
TEST_F(MouseResize, StartsNearARightEdge) {
  struct Case {
    Point at;
    std::int32_t edge;  // 0: none starts
  };
  for (const Case& row : {Case{{71, 10}, 76},
                          {{81, 10}, 76},
                          {{70, 10}, 0},
                          {{82, 10}, 0},
                          {{136, 10}, 136},
                          {{191, 10}, 196},
                          {{190, 10}, 0},
                          {{76, 0}, 0},
                          {{76, 20}, 0},
                          {{76, 1}, 76}}) {
    EXPECT_EQ(resize.start(row.at), row.edge != 0) << row.at.x << ',' << row.at.y;
    EXPECT_EQ(window.captured, row.edge != 0);
    if (row.edge != 0) {
      EXPECT_EQ(parts.mouse.resize.edge, row.edge) << row.at.x;
    }
    EXPECT_EQ(resize.end(), row.edge != 0);
    EXPECT_FALSE(window.captured);
  }
}

TEST_F(MouseResize, SettingsForbidIt) {
  parts.settings.Resize = 2;
  EXPECT_FALSE(resize.start({76, 10}));
  parts.settings.Resize = 3;
  parts.settings.ViewHeader = false;
  EXPECT_FALSE(resize.start({76, 10}));
  parts.settings.ViewHeader = true;
  EXPECT_TRUE(resize.start({76, 10}));
}

TEST_F(MouseResize, NotWithinReachOfTheIndicator) {
  setColumns("a 0 3 0 20\nb 3 60 0 20");
  EXPECT_FALSE(resize.start({21, 10}));
  EXPECT_TRUE(resize.start({22, 10}));
  EXPECT_EQ(parts.mouse.resize.edge, 19);
}

TEST_F(MouseResize, OfEqualDistancesTheLaterInTheListWins) {
  setColumns("a 0 60 0 20\nb 0 68 0 20\nc 68 180 0 20");
  EXPECT_TRUE(resize.start({80, 10}));
  EXPECT_EQ(parts.mouse.resize.edge, 84);
}

TEST_F(MouseResize, StaysInItsRange) {
  ASSERT_TRUE(resize.start({138, 10}));  // two pixels right of the edge
  EXPECT_EQ(parts.mouse.resize.minX, 81);
  EXPECT_EQ(parts.mouse.resize.maxX, 249);
  EXPECT_FALSE(resize.step(138));
  EXPECT_TRUE(resize.step(140));
  EXPECT_EQ(headers(), "a:16-76 b:76-138 c:138-198");
  EXPECT_TRUE(resize.step(81));
  EXPECT_EQ(headers(), "a:16-76 b:76-81 c:81-141");
  EXPECT_FALSE(resize.step(80));
  EXPECT_FALSE(resize.step(-5));
  EXPECT_FALSE(resize.step(250));
  EXPECT_TRUE(resize.step(249));
  EXPECT_EQ(headers(), "a:16-76 b:76-249 c:249-309");
  EXPECT_EQ(viewsOf(parts.config.columns), headers());
  EXPECT_TRUE(resize.end());
  EXPECT_FALSE(window.captured);
  EXPECT_TRUE(window.shown[Bar::Horizontal]);
  EXPECT_FALSE(resize.step(200));
}

TEST_F(MouseResize, TheNearestInnerEdgeIsTheLimit) {
  // d lies over a and b; its edge cannot pass behind a's.
  setColumns("a 0 40 0 20\nd 0 100 20 40\nb 40 100 0 20\nc 100 180 0 40");
  ASSERT_TRUE(resize.start({116, 10}));
  EXPECT_EQ(parts.mouse.resize.minX, 16 + 40 + 5);
  EXPECT_TRUE(resize.step(106));
  EXPECT_EQ(headers(), "a:16-56 d:16-106 b:56-106 c:106-186");
}

TEST_F(MouseResize, HeaderAndViewMayEndElsewhere) {
  setColumns("a 0 60 0 20\nb 60 120 0 20\nc 120 180 0 20");
  column("a").view.rect.right = 90;  // reaches under b's header
  column("c").view.rect.left = 120;  // starts before its header
  column("b").view.rect = {90, 0, 120, 20};
  ASSERT_TRUE(resize.start({76, 10}));
  EXPECT_TRUE(resize.step(80));
  EXPECT_EQ(headers(), "a:16-80 b:80-140 c:140-200");
  EXPECT_EQ(viewsOf(parts.config.columns), "a:16-94 b:94-124 c:124-200");
}

TEST_F(MouseResize, FixedEdgesShiftWhatScrolls) {
  window.size.width = 150;
  setColumns("a 0 30 0 20 fix\nb 30 60 0 20 fix\nc 60 120 0 20\nd 120 180 0 20");
  const GridFrame frame = parts.frame();
  ColumnScroll scroll{parts.config.columns, parts.page, parts.focus, frame};
  ASSERT_EQ(scroll.StepRight(), 60);
  ASSERT_EQ(headers(), "a:16-46 b:46-76 c:16-76 d:76-136");
  ASSERT_TRUE(resize.start({46, 10}));
  EXPECT_TRUE(parts.mouse.resize.fixed);
  EXPECT_TRUE(resize.step(56));
  EXPECT_EQ(headers(), "a:16-56 b:56-86 c:26-86 d:86-146");
  resize.end();
  // Two columns end at the zone's edge: the fixed one counts up to 5 pixels beyond it.
  ASSERT_TRUE(resize.start({90, 10}));
  EXPECT_TRUE(parts.mouse.resize.fixed);
  EXPECT_EQ(parts.mouse.resize.edge, 86);
  resize.end();
  ASSERT_TRUE(resize.start({91, 10}));
  EXPECT_FALSE(parts.mouse.resize.fixed);
  resize.end();
  ASSERT_TRUE(resize.start({145, 10}));
  EXPECT_FALSE(parts.mouse.resize.fixed);
  EXPECT_TRUE(resize.step(140));
  EXPECT_EQ(headers(), "a:16-56 b:56-86 c:26-86 d:86-141");
}

TEST_F(MouseResize, TheFocusFollowsItsColumn) {
  parts.focus.FocusColumn = position("c");
  parts.focus.FocusLeft = 136;
  ASSERT_TRUE(resize.start({136, 10}));
  EXPECT_TRUE(resize.step(126));
  EXPECT_EQ(parts.focus.FocusLeft, 126);
}

TEST_F(MouseResize, ARebuiltGridEndsTheDrag) {
  ASSERT_TRUE(resize.start({76, 10}));
  rebuild();
  EXPECT_FALSE(resize.step(90));
  EXPECT_EQ(headers(), "a:16-76 b:76-136 c:136-196");
  EXPECT_TRUE(resize.end());
  EXPECT_FALSE(window.captured);
  EXPECT_FALSE(parts.mouse.resize.active);
  ASSERT_TRUE(resize.start({76, 10}));
  EXPECT_TRUE(resize.step(90));
}

TEST(ShiftEdge, ByHeaderCoordinates) {
  ColumnList columns = columnsOf("a 0 40 0 20\nb 40 100 0 20\nc 40 70 0 20\nd 100 150 0 20\ne 20 120 0 20");
  columns.head()->value().view.rect.right = 500;  // a view does not count
  ShiftEdge(columns, 100, 10);
  EXPECT_EQ(headersOf(columns), "a:0-40 b:40-110 c:40-70 d:110-160 e:20-130");
  EXPECT_EQ(viewsOf(columns), "a:0-500 b:40-110 c:40-70 d:110-160 e:20-130");
}

}  // namespace
}  // namespace tessera
