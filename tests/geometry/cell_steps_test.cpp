// Steps from cell to cell, as tables.

#include "geometry/cell_steps.h"

#include <gtest/gtest.h>
#include <sstream>

#include "tests/geometry/columns_of.h"

namespace tessera::test {
namespace {

// Three rows of a template that is made from `text`; `scrolled` moves the columns that are not fixed.
struct Ground {
  explicit Ground(const std::string& text, std::int32_t scrolled = 0) : columns(columnsOf(text)) {
    metrics.measureHeights(columns);
    metrics.buildLineTops(columns);
    metrics.AnyFixed = text.find(" fix") != std::string::npos;
    for (ColumnRecord& column : columns) {
      if (column.header.fix) continue;
      for (Rect* rect : {&column.header.rect, &column.view.rect}) {
        rect->left -= scrolled;
        rect->right -= scrolled;
      }
    }
    rows.buildPlain(3);
  }

  CellSteps steps() { return {columns, metrics, rows}; }
  // "COLUMN LINE ROW"
  Cell cell(const std::string& text) {
    std::istringstream words(text);
    std::string id;
    std::int32_t line = 0;
    std::int32_t row = 0;
    words >> id >> line >> row;
    Cell found{rows.find(row), nullptr, line};
    for (auto it = columns.begin(); it != columns.end(); ++it) {
      if (it->id.toUtf8() == id) found.column = it.position();
    }
    return found;
  }
  std::string nameOf(const std::optional<Cell>& cell) {
    if (!cell) return "-";
    return cell->column->value().id.toUtf8() + ' ' + std::to_string(cell->line) + ' ' +
           std::to_string(cell->row->row);
  }
  std::string nameOf(const CellSteps::VerticalStep& step) {
    if (step.outcome == CellSteps::Vertical::NoRow) return "no row";
    return step.outcome == CellSteps::Vertical::NoCell ? "no cell" : nameOf(step.cell);
  }

  ColumnList columns;
  GridMetrics metrics;
  RowTree rows;
};

struct Step {
  const char* from;
  const char* left;
  const char* right;
  const char* up;
  const char* down;
};

void expectSteps(Ground& ground, std::initializer_list<Step> table) {
  for (const Step& step : table) {
    SCOPED_TRACE(step.from);
    const Cell from = ground.cell(step.from);
    EXPECT_EQ(ground.nameOf(ground.steps().left(from)), step.left);
    EXPECT_EQ(ground.nameOf(ground.steps().right(from)), step.right);
    EXPECT_EQ(ground.nameOf(ground.steps().up(from)), step.up);
    EXPECT_EQ(ground.nameOf(ground.steps().down(from)), step.down);
  }
}

TEST(CellStepsTest, OneLine) {
  Ground ground("a 0 60 0 20\nh 60 90 0 20 hidden\nb 60 120 0 20\nc 120 180 0 20");
  expectSteps(ground, {{"a 0 1", "-", "b 0 1", "no row", "a 0 2"},
                       {"b 0 1", "a 0 1", "c 0 1", "no row", "b 0 2"},
                       {"c 0 1", "b 0 1", "a 0 2", "no row", "c 0 2"},
                       {"a 0 2", "c 0 1", "b 0 2", "a 0 1", "a 0 3"},
                       {"c 0 3", "b 0 3", "-", "c 0 2", "no row"}});
}

// a is as high as the row; b over c, and d over e in the third place.
TEST(CellStepsTest, TwoLines) {
  Ground ground("a 0 60 0 40\nb 60 120 0 20\nd 120 180 0 20\nc 60 120 20 40\ne 120 180 20 40");
  expectSteps(ground, {{"a 0 1", "-", "b 0 1", "no row", "a 0 2"},
                       {"a 1 1", "d 0 1", "c 1 1", "no row", "a 1 2"},
                       {"b 0 1", "a 0 1", "d 0 1", "no row", "c 1 1"},
                       {"d 0 1", "b 0 1", "a 1 1", "no row", "e 1 1"},
                       {"c 1 1", "a 1 1", "e 1 1", "b 0 1", "b 0 2"},
                       {"e 1 2", "c 1 2", "a 0 3", "d 0 2", "d 0 3"},
                       {"b 0 2", "a 0 2", "d 0 2", "c 1 1", "c 1 2"},
                       {"a 1 2", "d 0 2", "c 1 2", "a 1 1", "a 1 3"},
                       {"e 1 3", "c 1 3", "-", "d 0 3", "no row"},
                       {"a 0 3", "e 1 2", "b 0 3", "a 0 2", "no row"}});
}

// The column below has to hold the left edge of the one above, and gaps are no cells.
TEST(CellStepsTest, LinesThatDoNotMatch) {
  Ground ground("a 0 50 0 20\nb 50 100 0 20\nwide 30 100 20 40");
  expectSteps(ground, {{"a 0 1", "-", "b 0 1", "no row", "no cell"},
                       {"b 0 1", "a 0 1", "wide 1 1", "no row", "wide 1 1"},
                       {"wide 1 1", "b 0 1", "a 0 2", "a 0 1", "a 0 2"}});
}

TEST(CellStepsTest, WrappingCanBeOff) {
  Ground ground("a 0 60 0 20\nb 60 120 0 20");
  EXPECT_EQ(ground.nameOf(ground.steps().left(ground.cell("a 0 2"), false)), "-");
  EXPECT_EQ(ground.nameOf(ground.steps().right(ground.cell("b 0 2"), false)), "-");
  EXPECT_EQ(ground.nameOf(ground.steps().right(ground.cell("a 0 2"), false)), "b 0 2");
}

// A line that no visible column meets is passed over, and a column without a width is no cell: otherwise the
// walks would stand still.
TEST(CellStepsTest, EmptyLinesAndColumns) {
  Ground ground("a 0 60 0 20\nflat 60 60 0 20\nb 60 120 0 20\nh 0 60 30 40 hidden\nlow 0 60 35 40");
  expectSteps(ground, {{"a 0 1", "-", "b 0 1", "no row", "low 2 1"},
                       {"b 0 1", "a 0 1", "low 2 1", "no row", "no cell"},
                       {"low 2 1", "b 0 1", "a 0 2", "a 0 1", "a 0 2"},
                       {"a 0 2", "low 2 1", "b 0 2", "low 2 1", "low 2 2"}});
  Ground edges("top 0 60 0 5 hidden\na 0 60 5 20\nlast 0 60 30 40 hidden");
  expectSteps(edges,
              {{"a 1 1", "-", "a 1 2", "no row", "a 1 2"}, {"a 1 3", "a 1 2", "-", "a 1 2", "no row"}});
}

constexpr const char* fixedColumns = "f 0 60 0 20 fix\ng 60 120 0 20 fix\nx 120 180 0 20\ny 180 240 0 20";

TEST(CellStepsTest, FixedColumnsUnscrolled) {
  Ground ground(fixedColumns);
  expectSteps(ground, {{"f 0 2", "y 0 1", "g 0 2", "f 0 1", "f 0 3"},
                       {"g 0 2", "f 0 2", "x 0 2", "g 0 1", "g 0 3"},
                       {"x 0 2", "g 0 2", "y 0 2", "x 0 1", "x 0 3"},
                       {"y 0 2", "x 0 2", "f 0 3", "y 0 1", "y 0 3"}});
  EXPECT_FALSE(ground.steps().mustScrollBack(ground.cell("g 0 2")));
}

// x lies under g: from y the way left is to x, not into the fixed columns, and from g to the right it is back
// to x.
TEST(CellStepsTest, FixedColumnsScrolled) {
  Ground ground(fixedColumns, 60);
  expectSteps(ground,
              {{"y 0 2", "x 0 2", "f 0 3", "y 0 1", "y 0 3"}, {"g 0 2", "f 0 2", "y 0 2", "g 0 1", "g 0 3"}});
  EXPECT_TRUE(ground.steps().mustScrollBack(ground.cell("g 0 2")));
  EXPECT_FALSE(ground.steps().mustScrollBack(ground.cell("f 0 2")));
  EXPECT_FALSE(ground.steps().mustScrollBack(ground.cell("y 0 2")));
  EXPECT_EQ(ground.nameOf(ground.steps().firstScrolled(ground.cell("g 0 2"))), "x 0 2");
}

// A new line begins with its fixed columns, but one without any is not lost.
TEST(CellStepsTest, LinesWithoutFixedColumns) {
  Ground ground("f 0 60 0 20 fix\nx 60 120 0 20\ny 120 180 20 40");
  EXPECT_EQ(ground.nameOf(ground.steps().right(ground.cell("x 0 1"))), "y 1 1");
  EXPECT_EQ(ground.nameOf(ground.steps().right(ground.cell("y 1 1"))), "f 0 2");
}

TEST(CellStepsTest, UpAndDownStayAmongTheirKind) {
  Ground ground("f 0 60 0 40 fix\nx 60 120 0 20\nfx 60 120 20 40 fix\ny 60 120 20 40");
  EXPECT_EQ(ground.nameOf(ground.steps().down(ground.cell("x 0 1"))), "y 1 1");
  EXPECT_EQ(ground.nameOf(ground.steps().up(ground.cell("fx 1 1"))), "no cell");
}

TEST(CellStepsTest, EndsOfALine) {
  struct Row {
    const char* columns;
    std::int32_t line;
    const char* home;
    const char* end;
  };
  const Row table[] = {
      {"a 0 60 0 20\nb 60 120 0 20", 0, "a", "b"},
      {"b 60 120 0 20\na 0 60 0 20", 0, "a", "b"},
      {"h 0 60 0 20 hidden\na 60 120 0 20", 0, "a", "a"},
      {"a 0 60 0 20\nb 0 60 20 40", 1, "b", "b"},
      // The other line reaches further out, and comes first or last.
      {"a 0 60 0 20\nb 10 50 20 40", 1, "-", "-"},
      {"b 10 50 20 40\na 0 60 0 20", 1, "b", "b"},
      {"", 0, "-", "-"},
  };
  for (const Row& row : table) {
    SCOPED_TRACE(row.columns);
    Ground ground(row.columns);
    const auto name = [](ColumnPosition column) { return column ? column->value().id.toUtf8() : "-"; };
    EXPECT_EQ(name(ground.steps().home(row.line)), row.home);
    EXPECT_EQ(name(ground.steps().end(row.line)), row.end);
  }
}

}  // namespace
}  // namespace tessera::test
