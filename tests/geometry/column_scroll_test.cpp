#include "geometry/column_scroll.h"

#include <gtest/gtest.h>

#include "geometry/scroll_bars.h"
#include "tests/geometry/columns_of.h"
#include "tests/support/fake_window.h"

namespace tessera {
namespace {

using test::columnsOf;
using test::headersOf;

struct ScrollFixture {
  ScrollFixture(const char* text, std::int32_t width) : columns(columnsOf(text)) {
    config.columns = columns;
    metrics.measureHeights(columns);
    metrics.closeFixedZone(columns);
    frame.hasWindow = true;
    frame.client = {width, 200};
    frame.headerBand = metrics.HeaderHeight;
    frame.rowHeight = metrics.RowHeight;
    frame.anyFixed = metrics.AnyFixed;
    if (frame.anyFixed) frame.fixed = fixedRange(columns);
    update();
  }
  void update() {
    updateHorizontalBar(scroll(), settings, window);
    updateVerticalBar(page, frame, rows, settings, window);
  }
  ColumnScroll scroll() { return {columns, page, focus, frame}; }
  ColumnRecord& column(std::string_view id) {
    for (ColumnRecord& record : columns) {
      if (utf8FromUtf16(record.id) == id) return record;
    }
    throw std::out_of_range("no such column");
  }

  GridConfig config;
  ColumnList columns;
  GridSettings settings;
  GridMetrics metrics;
  GridFrame frame;
  PageView page;
  FocusModel focus;
  RowTree rows;
  test::FakeWindow window;
};

constexpr const char* fiveColumns =
    "a 0 100 0 20\nb 100 200 0 20\nc 200 300 0 20\nd 300 400 0 20\ne 400 500 0 20";

TEST(ColumnScroll, StepsColumnByColumnUntilTheLastOneShows) {
  ScrollFixture f(fiveColumns, 250);
  EXPECT_EQ(f.window.bars[Bar::Horizontal].maximum,
            4);  // 1 + the three stops after which e ends inside the view
  f.focus.FocusColumn = f.columns.head();
  EXPECT_EQ(f.scroll().StepRight(), 100);
  EXPECT_EQ(headersOf(f.columns), "a:-100-0 b:0-100 c:100-200 d:200-300 e:300-400");
  EXPECT_EQ(f.scroll().StepRight(), 100);
  EXPECT_EQ(f.scroll().StepRight(), 100);
  EXPECT_EQ(f.scroll().StepRight(), 0);
  EXPECT_EQ(f.page.ColumnStop, 4);
  EXPECT_EQ(f.focus.FocusLeft, -300);
  EXPECT_EQ(f.scroll().StepLeft(), 100);
  EXPECT_EQ(f.scroll().StepLeft(), 100);
  EXPECT_EQ(f.scroll().StepLeft(), 100);
  EXPECT_EQ(f.scroll().StepLeft(), 0);
  EXPECT_EQ(headersOf(f.columns), "a:0-100 b:100-200 c:200-300 d:300-400 e:400-500");
}

TEST(ColumnScroll, FixedColumnsStay) {
  ScrollFixture f("fixed 0 80 0 20 fix\nb 80 180 0 20\nc 180 280 0 20\nd 280 400 0 20", 200);
  EXPECT_EQ(f.scroll().StepRight(), 100);
  EXPECT_EQ(headersOf(f.columns), "fixed:0-80 b:-20-80 c:80-180 d:180-300");
  EXPECT_EQ(f.scroll().PageColumns(), 2);
}

TEST(ColumnScroll, FixedFocusColumnKeepsItsPlace) {
  ScrollFixture f("fixed 0 80 0 20 fix\nb 80 180 0 20\nc 180 280 0 20", 200);
  f.focus.FocusColumn = f.columns.head();
  EXPECT_EQ(f.scroll().StepRight(), 100);
  EXPECT_EQ(f.focus.FocusLeft, 0);
}

// A view that ends inside the fixed zone has columns beyond it and none that could slide out.
TEST(ColumnScroll, ViewNarrowerThanTheFixedZoneMovesNothingAway) {
  ScrollFixture f("fixed 0 500 0 20 fix\na 500 600 0 20\nb 600 650 0 20", 300);
  f.page.horizontal.maximum = 10;
  for (int i = 0; i < 5; ++i) f.scroll().StepRight();
  EXPECT_EQ(headersOf(f.columns), "fixed:0-500 a:350-450 b:450-500");
  while (f.scroll().StepLeft() != 0) {
  }
  EXPECT_EQ(headersOf(f.columns), "fixed:0-500 a:500-600 b:600-650");
}

TEST(ColumnScroll, BringsColumnsIntoView) {
  struct Case {
    const char* id;
    const char* expected;
  };
  for (const Case& c : {Case{"e", "a:-300--200 b:-200--100 c:-100-0 d:0-100 e:100-200"},
                        Case{"c", "a:-100-0 b:0-100 c:100-200 d:200-300 e:300-400"},
                        Case{"a", "a:0-100 b:100-200 c:200-300 d:300-400 e:400-500"}}) {
    ScrollFixture f(fiveColumns, 250);
    f.scroll().EnsureColumnVisible(f.column(c.id));
    EXPECT_EQ(headersOf(f.columns), c.expected) << c.id;
    f.scroll().EnsureColumnVisible(f.column("a"));
    EXPECT_EQ(f.page.ColumnStop, 1) << c.id;
  }
}

TEST(ColumnScroll, ColumnWiderThanThePageShowsItsLeftEnd) {
  ScrollFixture f("a 0 100 0 20\nwide 100 900 0 20\nc 900 1000 0 20", 250);
  f.scroll().EnsureColumnVisible(f.column("wide"));
  EXPECT_EQ(headersOf(f.columns), "a:-100-0 wide:0-800 c:800-900");
}

TEST(ScrollBars, HorizontalBarFollowsTheColumns) {
  struct Case {
    const char* columns;
    std::int32_t width;
    std::int32_t maximum;  // 0: everything fits
  };
  const Case cases[] = {
      {fiveColumns, 500, 0},
      {fiveColumns, 499, 2},
      {fiveColumns, 400, 3},  // one more than it takes: the step itself refuses there
      {fiveColumns, 399, 3},
      {fiveColumns, 50, 6},
      {"a 0 100 0 20 fix\nb 100 200 0 20\nc 200 300 0 20", 250, 2},
      {"a 0 100 0 20 fix\nb 100 400 0 20", 250, 1},
      {"a 0 100 0 20\nb 0 100 20 40\nc 100 200 0 20", 150, 2},  // equal lefts are one stop
      {"", 100, 0},
  };
  for (const Case& c : cases) {
    ScrollFixture f(c.columns, c.width);
    EXPECT_EQ(f.window.shown[Bar::Horizontal], c.maximum != 0) << c.columns << " in " << c.width;
    if (c.maximum != 0) {
      EXPECT_EQ(f.window.bars[Bar::Horizontal].maximum, c.maximum) << c.columns << " in " << c.width;
    }
    EXPECT_EQ((f.page.ScrollBarsOn & bar_bit::horizontal) != 0, c.maximum != 0);
  }
}

// Of two columns with one left the first one counts, but a page that is scrolled has seen how far they all
// reach.
TEST(ScrollBars, ScrolledPageKnowsTheWidestColumn) {
  ScrollFixture f("a 0 100 0 20\nb 100 200 0 20\nc 200 250 0 20\nwide 200 500 20 40", 150);
  f.scroll().StepRight();
  f.update();
  EXPECT_EQ(f.window.bars[Bar::Horizontal].maximum, 4);
}

TEST(ScrollBars, WidenedWindowPullsHiddenColumnsBackIn) {
  ScrollFixture f(fiveColumns, 250);
  f.scroll().EnsureColumnVisible(f.column("e"));
  f.frame.client.width = 450;
  f.update();
  EXPECT_EQ(headersOf(f.columns), "a:-100-0 b:0-100 c:100-200 d:200-300 e:300-400");
  EXPECT_EQ(f.page.ColumnStop, 2);
}

TEST(ScrollBars, VerticalBarAndTheBarsThatStay) {
  ScrollFixture f("a 0 100 0 20", 200);
  f.rows.buildPlain(8);  // 20 header + 8 * 20 rows in 200 pixels: one too many, the last pixel is kept free
  f.update();
  EXPECT_EQ(f.frame.rowCapacity(), 8);
  EXPECT_FALSE(f.window.shown[Bar::Vertical]);
  f.rows.buildPlain(9);
  f.page.TopOrdinal = 2;
  f.update();
  EXPECT_EQ(f.window.bars[Bar::Vertical], (BarRange{1, 9, 8, 2}));
  EXPECT_TRUE(f.window.shown[Bar::Vertical] && f.window.barEnabled[Bar::Vertical]);
  f.rows.buildPlain(1);
  f.settings.FixVScroll = true;
  f.update();
  EXPECT_TRUE(f.window.shown[Bar::Vertical]);
  EXPECT_FALSE(f.window.barEnabled[Bar::Vertical]);
}

}  // namespace
}  // namespace tessera
