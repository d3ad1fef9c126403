#include "geometry/hit_test.h"

#include <gtest/gtest.h>
#include <sstream>

#include "tests/geometry/columns_of.h"

namespace tessera {
namespace {

using test::columnsOf;

// Two lines of twenty pixels, an indicator of 16, thirty rows on a client of 400 by 220: capacity 4.
struct HitFixture {
  explicit HitFixture(const char* text = "name 0 120 0 40\nage 120 200 0 20\nflag 120 200 20 40") {
    columns = columnsOf(text);
    metrics.measureHeights(columns);
    metrics.makeRoomForIndicator(columns, 16);
    metrics.closeFixedZone(columns);
    config.indicator.width = 16;
    rows.buildPlain(30);
    page.RefillFrom(rows, frame().rowCapacity(), rows.find(3));
  }
  GridFrame frame() {
    const Size client{400, 220};
    GridFrame now = frameOf(config, settings, metrics, &client);
    if (now.anyFixed) now.fixed = fixedRange(columns);
    return now;
  }
  // "region row column"
  std::string hit(std::int32_t x, std::int32_t y) {
    const Hit found = hitTest(frame(), columns, page, link, x, y);
    std::ostringstream text;
    text << static_cast<int>(found.region) << ' ' << found.row << ' '
         << (found.column ? utf8FromUtf16(found.column->value().id) : "-");
    return text.str();
  }

  GridConfig config;
  GridSettings settings;
  GridMetrics metrics;
  ColumnList columns;
  RowTree rows;
  PageView page;
  DataLink link;
};

struct HitCase {
  std::int32_t x, y;
  const char* expected;
};

TEST(HitTest, FindsBandsRowsAndColumns) {
  HitFixture f;
  const HitCase cases[] = {
      {5, 10, "1 -2 -"},          {5, 20, "1 -2 -"},    {5, 21, "1 3 -"},      {16, 30, "1 3 -"},
      {17, 20, "2 -1 -"},         {17, 21, "3 3 name"}, {135, 25, "3 3 name"}, {136, 25, "3 3 age"},
      {136, 45, "3 3 flag"},      {136, 61, "3 4 age"}, {215, 70, "3 4 age"},  {216, 70, "3 4 -"},
      {217, 10, "6 -1 -"},        {217, 70, "6 -1 -"},  {30, 219, "3 7 name"}, {30, 221, "6 -1 -"},
      {30, 2000000000, "6 -1 -"},
  };
  for (const HitCase& c : cases) EXPECT_EQ(f.hit(c.x, c.y), c.expected) << c.x << "," << c.y;
}

TEST(HitTest, SummaryBands) {
  HitFixture f;
  f.settings.ViewSummary = SummaryBand::Top;
  const HitCase top[] = {
      {5, 60, "1 -3 -"},      {5, 61, "1 3 -"},      {136, 25, "5 -1 age"},
      {136, 45, "5 -1 flag"}, {30, 60, "5 -1 name"},  // the lowest line counts as the first one
      {136, 61, "3 3 age"}};
  for (const HitCase& c : top) EXPECT_EQ(f.hit(c.x, c.y), c.expected) << "top " << c.x << "," << c.y;
  f.settings.ViewSummary = SummaryBand::Bottom;
  const HitCase bottom[] = {{5, 180, "1 -3 -"},
                            {5, 179, "1 6 -"},
                            {136, 181, "5 -1 age"},
                            {136, 215, "5 -1 flag"},
                            {30, 30, "3 3 name"}};
  for (const HitCase& c : bottom) EXPECT_EQ(f.hit(c.x, c.y), c.expected) << "bottom " << c.x << "," << c.y;
}

TEST(HitTest, HeaderOffStartsRowsAtTheTop) {
  HitFixture f;
  f.settings.ViewHeader = false;
  EXPECT_EQ(f.hit(30, 0), "2 -1 name");  // y 0 still counts as the header band
  EXPECT_EQ(f.hit(30, 1), "3 3 name");
  EXPECT_EQ(cellRect(f.frame(), f.columns.head()->value(), 0), (Rect{16, 0, 136, 40}));
}

TEST(HitTest, ColumnsBehindTheFixedZone) {
  HitFixture f("a 0 60 0 20 fix\nb 60 160 0 20\nc 160 260 0 20");
  shiftScrolledColumns(f.columns, -100);
  EXPECT_EQ(f.hit(30, 30), "3 3 a");  // b lies wholly behind the zone
  EXPECT_EQ(f.hit(100, 30), "3 3 c");
  shiftScrolledColumns(f.columns, 50);
  EXPECT_EQ(f.hit(50, 30), "3 3 a");  // the first in the list wins
  EXPECT_EQ(cellRect(f.frame(), f.columns.tail()->value(), 1), (Rect{126, 40, 226, 60}));
  const ColumnRecord& b = ColumnList::nextOf(f.columns.head())->value();
  EXPECT_EQ(cellRect(f.frame(), b, 0), (Rect{76, 20, 126, 40}));  // cut at the zone
}

TEST(HitTest, TemplatesWithoutHeightHitNoRow) {
  for (const char* text : {"a 0 100 0 20 hidden", "a 0 100 20 20", "a 0 100 30 10"}) {
    HitFixture f(text);
    EXPECT_EQ(f.hit(30, 50), "6 -1 -") << text;
    EXPECT_EQ(f.hit(5, 50), "6 -1 -") << text;
    EXPECT_EQ(f.frame().rowCapacity(), 0) << text;
  }
}

TEST(GridFrame, Capacity) {
  HitFixture f;
  EXPECT_EQ(f.frame().rowCapacity(), 4);  // (220 - 20 - 1) / 40
  f.settings.ViewSummary = SummaryBand::Bottom;
  EXPECT_EQ(f.frame().rowCapacity(), 3);
  EXPECT_EQ(frameOf(f.config, f.settings, f.metrics, nullptr).rowCapacity(), -1);
  const Size tiny{10, 5};
  EXPECT_EQ(frameOf(f.config, f.settings, f.metrics, &tiny).rowCapacity(), 1);
}

}  // namespace
}  // namespace tessera
