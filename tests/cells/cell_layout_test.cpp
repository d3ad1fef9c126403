#include "cells/cell_layout.h"

#include <gtest/gtest.h>
#include <limits>

#include "cells/head_layout.h"

namespace tessera {

// "left,top,right,bottom" in messages.
void PrintTo(const Rect& rect, std::ostream* stream) {
  *stream << rect.left << ',' << rect.top << ',' << rect.right << ',' << rect.bottom;
}

namespace {

constexpr Rect cell{100, 40, 200, 60};
constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();

ColumnRecord columnOf(CellKind kind, std::int32_t align = align::centerCenter) {
  ColumnRecord column;
  column.child.type = kind;
  column.view.align = align;
  return column;
}

TEST(CellLayout, MarksAreDrawnByTheirLabelsAndPressedByTheirColumns) {
  constexpr Rect left{103, 43, 117, 57}, middle{143, 43, 157, 57}, right{183, 43, 197, 57};
  constexpr Rect pressedLeft{103, 42, 117, 58}, pressedMiddle{142, 42, 158, 58},
      pressedRight{183, 42, 197, 58};
  const struct {
    std::int32_t align;
    const char16_t* labelColumn;
    bool hasLabel;
    Rect drawn, pressed;
  } cases[] = {
      {align::left, u"", false, left, pressedLeft},
      {align::right, u"L", true, right, pressedRight},
      {align::centerCenter, u"", false, middle, pressedMiddle},
      {align::centerCenter, u"L", true, left, pressedLeft},
      {align::centerCenter, u"L", false, middle, pressedLeft},
  };
  const TreeInfo tree;
  for (const CellKind kind : {CellKind::Check, CellKind::Radio}) {
    for (const auto& test : cases) {
      ColumnRecord column = columnOf(kind, test.align);
      column.child.checkText = column.child.radioText = test.labelColumn;
      const CellPart mark =
          layoutCell({.column = column, .tree = tree, .cell = cell, .hasLabel = test.hasLabel}).mark;
      EXPECT_EQ(mark.drawn, test.drawn);
      EXPECT_EQ(mark.pressed, test.pressed) << test.align << test.hasLabel;
    }
  }
}

// A cell that has partly scrolled away is drawn where it was, and pressed in what is left of it.
TEST(CellLayout, WhatIsScrolledAway) {
  const TreeInfo tree;
  const ColumnRecord check = columnOf(CellKind::Check, align::leftCenter);
  const CellLayout layout = layoutCell({.column = check, .tree = tree, .cell = cell, .clipLeft = 110});
  EXPECT_EQ(layout.mark.drawn.left, 103);
  EXPECT_EQ(layout.mark.pressed.left, 113);

  const ColumnRecord lookup = columnOf(CellKind::Lookup);
  const CellPlace cut{
      .column = lookup, .tree = tree, .cell = cell, .clipLeft = 190, .bottomLimit = 50, .showsButton = true};
  const CellLayout button = layoutCell(cut);
  EXPECT_EQ(button.visible, (Rect{190, 40, 200, 50}));
  EXPECT_EQ(button.button.drawn, (Rect{190, 37, 200, 54}));
  EXPECT_EQ(button.button.pressed, (Rect{183, 41, 200, 59}));
  EXPECT_EQ(button.body.right, 183);
}

TEST(CellLayout, Trees) {
  const struct {
    std::int32_t icon, indent, thumb, margin, level;
    RowState state;
    std::int32_t boxLeft, pressedLeft, textLeft;
  } cases[] = {
      {16, 5, 9, 3, 1, RowState::Collapsed, 103, 101, 21},
      {16, 5, 9, 3, 2, RowState::Collapsed, 121, 118, 39},
      {16, 5, 9, 3, 3, RowState::Collapsed, 137, 135, 56},
      {16, 5, 9, 3, 3, RowState::Leaf, 0, 0, 52},
      {16, 5, 10, 3, 2, RowState::Expanded, 121, 119, 39},
      {10, 0, 11, 0, 2, RowState::Leaf, 0, 0, 18},
  };
  for (const auto& test : cases) {
    TreeInfo tree;
    tree.rowMode = RowMode::Tree;
    tree.iconSize = test.icon;
    tree.indentWidth = test.indent;
    tree.thumbSize = test.thumb;
    ColumnRecord column = columnOf(CellKind::Check);
    column.hasTree = true;
    column.view.leftMargin = test.margin;
    CellPlace place{.column = column, .tree = tree, .cell = cell, .row = {{}, test.level, test.state}};
    const CellLayout layout = layoutCell(place);
    EXPECT_EQ(layout.treeBox.drawn.left, test.boxLeft);
    EXPECT_EQ(layout.leftMargin, test.textLeft) << test.level;
    EXPECT_TRUE(layout.mark.drawn.empty());
    EXPECT_FALSE(layout.mark.pressed.empty()) << "a press meets the mark that the tree hides";
    if (test.state == RowState::Leaf) continue;
    const auto& [glyph, drawn, pressed] = layout.treeBox;
    EXPECT_EQ(drawn.width(), test.thumb);
    const std::int32_t top = cell.top + (cell.height() - test.thumb) / 2 - 2, side = test.thumb + 4;
    EXPECT_EQ(pressed, (Rect{test.pressedLeft, top, test.pressedLeft + side, top + side}));
    tree.imageCColumn = tree.imageEColumn = u"icon";
    EXPECT_EQ(layoutCell(place).leftMargin, test.textLeft + test.icon);
    EXPECT_EQ(layoutCell(place).icon.right, 100 + test.textLeft + test.icon - test.margin);
  }
  ColumnRecord column = columnOf(CellKind::None);
  column.hasTree = true;
  TreeInfo tree;
  tree.rowMode = RowMode::Tree;
  EXPECT_EQ(layoutCell({.column = column, .tree = tree, .cell = cell, .row = {{}, least}}).leftMargin, least);
  const TreeInfo plain;
  EXPECT_EQ(layoutCell({.column = column, .tree = plain, .cell = cell}).leftMargin, 3);
}

TEST(HeadLayout, TheBoxThatShowsCounts) {
  HeaderCell header;
  header.rect = {100, 0, 200, 31};
  header.align = align::left;
  EXPECT_TRUE(layoutHead(header).check.pressed.empty());
  header.showCheck = true;
  EXPECT_EQ(layoutHead(header).check.pressed, (Rect{103, 7, 117, 23}));
  header.uncheckedBitmap = Glyph::DropButton;  // 17 by 17
  EXPECT_EQ(layoutHead(header).check.pressed, (Rect{103, 6, 120, 24}));
  header.checked = true;
  header.align = align::centerCenter;
  EXPECT_EQ(layoutHead(header).check.pressed, (Rect{103, 7, 117, 23}));
  header.align = align::right;
  EXPECT_EQ(layoutHead(header).check.pressed, (Rect{183, 7, 197, 23}));
}

}  // namespace
}  // namespace tessera
