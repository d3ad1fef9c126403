#include "geometry/column_edges.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>

#include "geometry/grid_metrics.h"
#include "shared/utf.h"

namespace tessera {
namespace {

// One column a line: "ID left right top bottom [fix] [hidden]": header and view have the same left and right,
// the header is 20 high, the view stands from top to bottom.
ColumnList columnsOf(const std::string& text) {
  ColumnList columns;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string id;
    ColumnRecord column;
    Rect& view = column.view.rect;
    if (!(words >> id >> view.left >> view.right >> view.top >> view.bottom)) continue;
    column.id = XString::fromNarrow(id);
    column.refColumnId = column.id;
    column.header.rect = {view.left, 0, view.right, 20};
    for (std::string word; words >> word;) {
      if (word == "fix") column.header.fix = true;
      if (word == "hidden") column.viewVisible = false;
    }
    columns.addTail(column);
  }
  return columns;
}

// "ID:left-right" of every header, in list order.
std::string headersOf(const ColumnList& columns) {
  std::ostringstream text;
  for (const ColumnRecord& column : columns) {
    text << (text.tellp() > 0 ? " " : "") << utf8FromUtf16(column.id) << ':' << column.header.rect.left << '-'
         << column.header.rect.right;
  }
  return text.str();
}

TEST(GridMetrics, MeasuresTheTemplate) {
  struct Case {
    const char* columns;
    std::int32_t rowHeight, headerHeight;
    std::vector<std::int32_t> lineTops;
  };
  const Case cases[] = {
      {"a 0 100 0 20", 20, 20, {0}},
      {"a 0 100 0 40\nb 100 200 20 40\nc 100 200 0 20", 40, 20, {0, 20}},
      {"a 0 100 5 25 hidden\nb 0 100 10 30", 20, 20, {5, 10}},  // lines count hidden views, heights do not
      {"a 0 100 0 20 hidden", -65536, 20, {0}},
      {"", -65536, 0, {}},
      {"a 0 100 30 10", -20, 20, {30}},
      {"a 0 100 -2000000000 2000000000", 2147483647, 20, {-2000000000}},
  };
  for (const Case& c : cases) {
    const ColumnList columns = columnsOf(c.columns);
    GridMetrics metrics;
    metrics.measureHeights(columns);
    metrics.buildLineTops(columns);
    EXPECT_EQ(metrics.RowHeight, c.rowHeight) << c.columns;
    EXPECT_EQ(metrics.HeaderHeight, c.headerHeight) << c.columns;
    EXPECT_EQ(metrics.LineTops, c.lineTops) << c.columns;
  }
}

TEST(ColumnEdges, PushesEdgesUntilNothingStraddles) {
  const ColumnList columns =
      columnsOf("a 0 60 0 20\nb 50 100 0 20\nc 90 130 0 20\nd 130 150 0 20\nf 20 40 0 20 fix");
  struct Case {
    std::int32_t edge, right, left;
  };
  for (const Case& c : {Case{55, 130, 0}, Case{95, 130, 0}, Case{130, 130, 130}, Case{140, 150, 130},
                        Case{30, 130, 0}, Case{0, 0, 0}, Case{500, 500, 500}}) {
    EXPECT_EQ(ExpandRight(columns, c.edge, {}), c.right) << c.edge;
    EXPECT_EQ(ExpandLeft(columns, c.edge, {}), c.left) << c.edge;
  }
  // With fixed columns too, those left of the limit that are not fixed are passed over.
  EXPECT_EQ(ExpandRight(columns, 30, {.fixedToo = true, .limit = 200}), 40);
}

TEST(ColumnEdges, HostileCoordinatesStopAtTheLimits) {
  ColumnList columns = columnsOf("a -2147483648 2147483647 0 20");
  ShiftColumns(columns, 100);
  EXPECT_EQ(headersOf(columns), "a:-2147483548-2147483647");
  ShiftColumns(columns, -2147483647);
  EXPECT_EQ(headersOf(columns), "a:-2147483648-0");
}

}  // namespace
}  // namespace tessera
