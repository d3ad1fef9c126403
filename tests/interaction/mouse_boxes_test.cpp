#include <cstdio>

#include "interaction/head_check.h"
#include "interaction/tree_box_hit.h"
#include "mouse_fixture.h"
#include "render/cell_painters.h"
#include "support/recording_canvas.h"

namespace tessera {
namespace {

HeaderCell checkedHeader(std::int32_t align) {
  HeaderCell header;
  header.rect = {100, 0, 200, 31};
  header.showCheck = true;
  header.align = align;
  return header;
}

TEST(HeadCheck, RectangleByAlign) {
  // The glyph is 14 by 14; the middle of the header is at 15.
  constexpr Rect atLeft{103, 7, 117, 23};
  constexpr Rect atRight{183, 7, 197, 23};
  EXPECT_EQ(headCheckRect(checkedHeader(align::left | align::top)), atLeft);
  EXPECT_EQ(headCheckRect(checkedHeader(align::centerCenter)), atLeft);
  EXPECT_EQ(headCheckRect(checkedHeader(align::right | align::middle)), atRight);
  HeaderCell without = checkedHeader(align::left);
  without.showCheck = false;
  EXPECT_TRUE(headCheckRect(without).empty());
}

TEST(HeadCheck, TheBoxThatShowsCounts) {
  HeaderCell header = checkedHeader(align::left);
  header.uncheckedBitmap = Glyph::DropButton;  // 17 by 17
  EXPECT_EQ(headCheckRect(header), (Rect{103, 6, 120, 24}));
  header.checked = true;
  EXPECT_EQ(headCheckRect(header), (Rect{103, 7, 117, 23}));
}

class TreeBox : public ::testing::Test {
 protected:
  TreeBox() {
    tree.rowMode = RowMode::Tree;
    column.hasTree = true;
    column.view.leftMargin = 3;
    node.level = 1;
    node.state = RowState::Collapsed;
  }
  bool hits(std::int32_t x, std::int32_t y) const { return hitsTreeBox(tree, column, cell, node, {x, y}); }

  TreeInfo tree;
  ColumnRecord column;
  RowNode node;
  Rect cell{50, 40, 150, 60};
};

TEST_F(TreeBox, TwoPixelsOfSlackAroundTheBox) {
  // The box: 53 to 62, 46 to 55.
  struct Case {
    std::int32_t x, y;
    bool hit;
  };
  for (const Case& row : {Case{51, 44, true},
                          {50, 44, false},
                          {51, 43, false},
                          {63, 56, true},
                          {64, 56, false},
                          {63, 57, false}}) {
    EXPECT_EQ(hits(row.x, row.y), row.hit) << row.x << ',' << row.y;
  }
}

TEST_F(TreeBox, DeeperNodesStandFurtherRight) {
  const TreeInfo& t = tree;
  const std::int32_t step = (t.iconSize + 2 * t.indentWidth + t.thumbSize) / 2;
  node.level = 3;
  EXPECT_TRUE(hits(53 + 2 * step, 50));
  EXPECT_FALSE(hits(53, 50));
}

TEST_F(TreeBox, OnlyNodesInTheTreeColumn) {
  EXPECT_TRUE(hits(55, 50));
  node.state = RowState::Leaf;
  EXPECT_FALSE(hits(55, 50));
  node.state = RowState::Expanded;
  EXPECT_TRUE(hits(55, 50));
  column.hasTree = false;
  EXPECT_FALSE(hits(55, 50));
  column.hasTree = true;
  tree.rowMode = RowMode::Plain;
  EXPECT_FALSE(hits(55, 50));
}

class PaintedTreeBox : public test::MouseTest {
 protected:
  // The outline of all that the painter draws.
  Rect painted(const RowNode& node, const Rect& cell) {
    RecordingCanvas canvas({250, 101});
    const GridFrame frame = parts.frame();
    const PaintModel model{parts.config, parts.settings, frame,        parts.page, parts.focus,
                           parts.rows,   parts.link,     parts.images, parts.eval, false};
    PaintScratch scratch;
    paintTreeCell({canvas, model, scratch}, {column("a"), node, cell, 0, u""}, 0);
    Rect box{cell.right, cell.bottom, 0, 0};
    for (const std::string& line : canvas.linesOf("line")) {
      Rect drawn;
      EXPECT_EQ(
          std::sscanf(line.c_str(), "line %d,%d %d,%d", &drawn.left, &drawn.top, &drawn.right, &drawn.bottom),
          4);
      box = {std::min(box.left, drawn.left), std::min(box.top, drawn.top), std::max(box.right, drawn.right),
             std::max(box.bottom, drawn.bottom)};
    }
    return box;
  }
  Rect hit(const RowNode& node, const Rect& cell) {
    Rect area{cell.right, cell.bottom, 0, 0};
    for (std::int32_t y = cell.top; y < cell.bottom; ++y) {
      for (std::int32_t x = cell.left; x < cell.right; ++x) {
        if (!hitsTreeBox(parts.config.tree, column("a"), cell, node, {x, y})) continue;
        area = {std::min(area.left, x), std::min(area.top, y), std::max(area.right, x),
                std::max(area.bottom, y)};
      }
    }
    return area;
  }
};

TEST_F(PaintedTreeBox, LiesInTheMiddleOfWhatIsHit) {
  parts.config.tree.rowMode = RowMode::Tree;
  parts.config.tree.hasLine = false;
  column("a").hasTree = true;
  column("a").view.borderStyle = border::none;
  constexpr Rect cell{16, 20, 216, 51};
  for (const std::int32_t thumb : {9, 12}) {
    parts.config.tree.thumbSize = thumb;
    for (const std::int32_t level : {1, 2, 3}) {
      RowNode node{.parent = nullptr, .row = 1, .level = level, .state = RowState::Collapsed};
      const Rect box = painted(node, cell);
      EXPECT_EQ(box.width() + 1, thumb);
      EXPECT_EQ(hit(node, cell), (Rect{box.left - 2, box.top - 2, box.right + 2, box.bottom + 2}))
          << thumb << ' ' << level;
    }
  }
}

}  // namespace
}  // namespace tessera
