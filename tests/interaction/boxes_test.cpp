// Where marks, buttons and boxes take the mouse, and what a mark makes of a value.

#include <gtest/gtest.h>

#include "interaction/cell_buttons.h"
#include "interaction/check_cells.h"
#include "interaction/tree_box_hit.h"

namespace tessera {
namespace {

TEST(Boxes, WhatAMarkMakesOfAValue) {
  const auto text = [](const char16_t* value) { return XValue::ofText(value); };
  XValue real;
  real.setFloat(0.5);
  struct Row {
    XValue value, byMouse, byKey, radio;
    bool isSet;
  };
  const Row table[] = {
      {text(u"T"), text(u"F"), text(u"F"), text(u"T"), true},
      {text(u"True"), text(u"F"), text(u"F"), text(u"T"), true},
      {text(u"F"), text(u"T"), text(u"T"), text(u"T"), false},
      {text(u"False"), text(u"T"), text(u"T"), text(u"T"), false},
      {text(u""), text(u"F"), text(u"T"), text(u"T"), true},
      {text(u"f"), text(u"F"), text(u"T"), text(u"T"), true},
      {text(u"x"), text(u"F"), text(u"T"), text(u"T"), true},
      {XValue::ofInt(0), XValue::ofInt(1), XValue::ofInt(1), XValue::ofInt(1), false},
      {XValue::ofInt(-3), XValue::ofInt(0), XValue::ofInt(0), XValue::ofInt(1), true},
      {XValue::ofInt64(0), XValue::ofInt(1), XValue::ofInt(1), XValue::ofInt(1), false},
      {XValue::ofInt64(std::int64_t{1} << 40), XValue::ofInt(0), XValue::ofInt(0), XValue::ofInt(1), true},
      {XValue::ofDouble(0), XValue::ofDouble(1), XValue::ofDouble(1), XValue::ofDouble(1), false},
      {real, XValue::ofDouble(0), XValue::ofDouble(0), XValue::ofDouble(1), true},
      {XValue::ofBool(true), XValue::ofBool(true), XValue::ofBool(true), XValue::ofBool(true), false},
      {XValue(), XValue(), XValue(), XValue(), false},
      {XValue::null(), XValue::null(), XValue::null(), XValue::null(), false},
  };
  for (std::size_t row = 0; row < std::size(table); ++row) {
    EXPECT_EQ(checkedByMouse(table[row].value), table[row].byMouse) << row;
    EXPECT_EQ(checkedByKey(table[row].value), table[row].byKey) << row;
    EXPECT_EQ(radioSetValue(table[row].value), table[row].radio) << row;
    EXPECT_EQ(isRadioSet(table[row].value), table[row].isSet) << row;
  }
}

TEST(Boxes, MarksAndButtons) {
  const Rect cell{100, 40, 200, 60};
  struct Row {
    CellKind kind;
    std::int32_t align;
    const char16_t* label;
    Rect mark;  // 14 by 14 with a pixel of slack above and below
  };
  const Row table[] = {
      {CellKind::Check, align::left, u"", {103, 42, 117, 58}},
      {CellKind::Check, align::right, u"", {183, 42, 197, 58}},
      {CellKind::Check, align::center, u"", {142, 42, 158, 58}},
      {CellKind::Check, align::center, u"LABEL", {103, 42, 117, 58}},
      {CellKind::Radio, align::centerCenter, u"LABEL", {103, 42, 117, 58}},
      {CellKind::Radio, align::right, u"LABEL", {183, 42, 197, 58}},
      {CellKind::Edit, align::left, u"", {}},
  };
  for (const Row& row : table) {
    ColumnRecord column;
    column.child.type = row.kind;
    column.child.checkBitmapOn = column.child.radioBitmapOn = Glyph::CheckOn;
    column.view.align = row.align;
    (row.kind == CellKind::Check ? column.child.checkText : column.child.radioText) = row.label;
    EXPECT_EQ(markRect(column, cell), row.mark) << static_cast<int>(row.kind) << ' ' << row.align;
  }
  ColumnRecord column;
  column.child.type = CellKind::Lookup;
  EXPECT_EQ(buttonRect(column, cell), (Rect{183, 41, 200, 59}));
}

// The box of level 1 goes from 53 to 62 and from 46 to 55; two pixels around it count.
TEST(Boxes, TreeBoxes) {
  const Rect cell{50, 40, 150, 60};
  TreeInfo tree;
  const std::int32_t step = (tree.iconSize + 2 * tree.indentWidth + tree.thumbSize) / 2;
  struct Row {
    Point at;
    std::int32_t level;
    RowState state;
    RowMode mode;
    bool hasTree, hit;
  };
  using enum RowMode;
  for (const Row& row : {Row{{51, 44}, 1, RowState::Collapsed, Tree, true, true},
                         {{50, 44}, 1, RowState::Collapsed, Tree, true, false},
                         {{51, 43}, 1, RowState::Collapsed, Tree, true, false},
                         {{63, 56}, 1, RowState::Expanded, Tree, true, true},
                         {{64, 56}, 1, RowState::Expanded, Tree, true, false},
                         {{63, 57}, 1, RowState::Expanded, Tree, true, false},
                         {{53 + 2 * step, 50}, 3, RowState::Collapsed, Tree, true, true},
                         {{53, 50}, 3, RowState::Collapsed, Tree, true, false},
                         {{55, 50}, 1, RowState::Leaf, Tree, true, false},
                         {{55, 50}, 1, RowState::Collapsed, Tree, false, false},
                         {{55, 50}, 1, RowState::Collapsed, Plain, true, false}}) {
    tree.rowMode = row.mode;
    ColumnRecord column;
    column.hasTree = row.hasTree;
    column.view.leftMargin = 3;
    RowNode node;
    node.level = row.level;
    node.state = row.state;
    EXPECT_EQ(hitsTreeBox(tree, column, cell, node, row.at), row.hit) << row.at.x << ',' << row.at.y;
  }
}

}  // namespace
}  // namespace tessera
