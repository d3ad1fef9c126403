// The cells of a tree column.

#include <algorithm>
#include <array>

#include "cells/cell_kinds.h"

namespace tessera {
namespace {

constexpr ColorRef gray = rgb(0x80, 0x80, 0x80);
constexpr ColorRef black = 0;

// What the levels of a tree column measure, from the left side of the cell.
struct TreeMeasure {
  TreeMeasure(const ColumnRecord& column, const TreeInfo& info) : tree(info), margin(column.view.leftMargin) {
    const std::int64_t icon = tree.iconSize;
    const std::int64_t box = tree.thumbSize;
    step = clampToInt((icon + 2 * static_cast<std::int64_t>(tree.indentWidth) + box) / 2);
    odd = (icon + box) % 2 != 0;
  }

  bool hasIcon(RowState state) const {
    return !(state == RowState::Expanded ? tree.imageEColumn : tree.imageCColumn).empty();
  }
  // Where the room for the icon ends.
  std::int64_t iconEnd(const RowView& row) const {
    std::int64_t end = hasIcon(row.state) ? tree.iconSize : 0;
    end += static_cast<std::int64_t>(subClamped(row.level, 1)) * step + margin;
    end += static_cast<std::int64_t>(tree.indentWidth) + tree.thumbSize;
    return odd ? end + row.level / 2 + 1 : end;
  }
  // The line of a level, from 1: it runs through the middle of the level's boxes.
  std::int32_t lineX(std::int32_t level) const {
    const std::int32_t first = addClamped(tree.thumbSize / 2, margin);
    const std::int32_t x = addClamped(first, mulClamped(subClamped(level, 1), step));
    return odd && level % 2 == 0 ? addClamped(x, 1) : x;
  }
  // From the line of a level to that of the next.
  std::int32_t stepFrom(std::int32_t level) const {
    if (!odd) return step;
    return level % 2 != 0 ? addClamped(step, 1) : subClamped(step, 1);
  }

  const TreeInfo& tree;
  std::int32_t margin;
  std::int32_t step;
  // Icon and box have no common middle: every second level is a pixel further right.
  bool odd;
};

std::int32_t middleOf(const Rect& cell) { return addClamped(cell.top, cell.height() / 2); }

// Lines that run up to, but not including, their end, and end at the clip edge.
class LinePen {
 public:
  LinePen(Canvas& canvas, std::int32_t clipLeft) : canvas_(canvas), clipLeft_(clipLeft) {}

  void vertical(std::int32_t x, std::int32_t from, std::int32_t to, ColorRef color) const {
    if (x >= clipLeft_ && from < to) line({x, from}, {x, to - 1}, color);
  }
  void horizontal(std::int32_t from, std::int32_t to, std::int32_t y, ColorRef color) const {
    const std::int32_t start = std::max(from, clipLeft_);
    if (start < to) line({start, y}, {to - 1, y}, color);
  }

 private:
  void line(Point from, Point to, ColorRef color) const {
    const std::array<Point, 2> points{from, to};
    canvas_.polyline(points, color, 1);
  }

  Canvas& canvas_;
  std::int32_t clipLeft_;
};

// The lines and the box of one row.
class TreeDrawer {
 public:
  TreeDrawer(Canvas& canvas, const CellPlace& place, const CellLayout& layout)
      : canvasRight_(canvas.size().width),
        cell_(place.cell),
        row_(place.row),
        layout_(layout),
        measure_(place.column, place.tree),
        tree_(place.tree),
        pen_(canvas, place.clipLeft),
        x_(addClamped(cell_.left, measure_.lineX(row_.level))),
        middle_(middleOf(cell_)) {}

  // `textHeight` is the height of the row's text; only an expanded row asks for it.
  void draw(std::int32_t textHeight) const {
    if (tree_.hasLine) drawAncestorLines();
    if (row_.state != RowState::Leaf) {
      drawBoxWithLines(textHeight);
    } else if (tree_.hasLine) {
      drawLeafLines();
    }
  }

 private:
  bool hasSiblingBelow() const { return row_.hasSiblingBelow(row_.level); }

  void drawAncestorLines() const {
    constexpr std::int32_t deepest = 63;  // that a RowView tells of
    for (std::int32_t level = std::min(subClamped(row_.level, 1), deepest); level >= 1; --level) {
      const std::int32_t x = addClamped(cell_.left, measure_.lineX(level));
      if (x < canvasRight_ && row_.hasSiblingBelow(level)) pen_.vertical(x, cell_.top, cell_.bottom, gray);
    }
  }

  void drawLeafLines() const {
    pen_.horizontal(x_, addClamped(x_, tree_.indentWidth), middle_, gray);
    if (row_.isFirst) {
      pen_.vertical(x_, middle_, cell_.bottom, gray);
    } else {
      pen_.vertical(x_, cell_.top, hasSiblingBelow() ? cell_.bottom : middle_, gray);
    }
  }

  void drawBoxWithLines(std::int32_t textHeight) const {
    const Rect& drawn = layout_.treeBox.drawn;
    const Rect box{drawn.left, drawn.top, subClamped(drawn.right, 1), subClamped(drawn.bottom, 1)};
    if (tree_.hasLine && !row_.isFirst) pen_.vertical(x_, cell_.top, box.top, gray);
    drawBox(box);
    if (tree_.hasLine) drawLinesOfBox(box, textHeight);
  }

  // The sides of `box` are the pixels of its outline.
  void drawBox(const Rect& box) const {
    pen_.horizontal(box.left, box.right, box.top, gray);
    pen_.vertical(box.right, box.top, box.bottom, gray);
    pen_.horizontal(box.left, addClamped(box.right, 1), box.bottom, gray);
    pen_.vertical(box.left, box.top, box.bottom, gray);
    pen_.horizontal(addClamped(box.left, 2), subClamped(box.right, 1), middle_, black);
    if (row_.state == RowState::Collapsed) {
      pen_.vertical(x_, addClamped(box.top, 2), subClamped(box.bottom, 1), black);
    }
  }

  void drawLinesOfBox(const Rect& box, std::int32_t textHeight) const {
    if (row_.state == RowState::Expanded) {
      const std::int32_t height = measure_.hasIcon(row_.state) ? tree_.iconSize : textHeight;
      pen_.vertical(addClamped(x_, measure_.stepFrom(row_.level)), addClamped(middle_, height / 2 + 2),
                    cell_.bottom, gray);
    }
    pen_.horizontal(box.right, addClamped(box.right, tree_.indentWidth), middle_, gray);
    if (hasSiblingBelow()) pen_.vertical(x_, box.bottom, cell_.bottom, gray);
  }

  std::int32_t canvasRight_;
  const Rect& cell_;
  const RowView& row_;
  const CellLayout& layout_;
  TreeMeasure measure_;
  const TreeInfo& tree_;
  LinePen pen_;
  std::int32_t x_;       // of the row's own line
  std::int32_t middle_;  // of the cell, from top to bottom
};

// The style of the row's text; null when it has none.
const CellStyle* styleOfLevel(const ColumnRecord& column, std::int32_t level) {
  if (level == 0) return &column.view;
  return level > 0 ? column.groupOfLevel(level) : nullptr;
}

std::int32_t textHeightOf(const CellTools& tools, const CellStyle& record, std::u16string_view text) {
  const std::u16string_view first = text.empty() ? std::u16string_view(u" ") : text.substr(0, 1);
  return tools.canvas.textExtent(record.effectiveFont(tools.texts.eval), first).height;
}

// Levels step by whole pixels here, and the box is centred by its size: what is pressed can be a pixel away
// from what is drawn.
Rect pressedBox(const CellPlace& place, const Rect& cell) {
  constexpr std::int32_t slack = 2;
  const TreeInfo& tree = place.tree;
  const std::int32_t box = tree.thumbSize;
  const std::int32_t step = addClamped(addClamped(subClamped(tree.iconSize, box) / 2, tree.indentWidth), box);
  const std::int32_t levels = mulClamped(subClamped(place.row.level, 1), step);
  const std::int32_t left = addClamped(addClamped(cell.left, place.column.view.leftMargin), levels);
  const std::int32_t top = addClamped(cell.top, subClamped(cell.height(), box) / 2);
  const std::int32_t side = addClamped(box, 2 * slack);
  const Rect reach{subClamped(left, slack), subClamped(top, slack), 0, 0};
  return {reach.left, reach.top, addClamped(reach.left, side), addClamped(reach.top, side)};
}

}  // namespace

void placeTree(const CellPlace& place, CellLayout& layout) {
  const TreeMeasure measure(place.column, place.tree);
  const RowView& row = place.row;
  const std::int32_t box = place.tree.thumbSize;
  const std::int32_t middle = middleOf(layout.cell);
  if (row.state != RowState::Leaf) {
    const std::int32_t left = subClamped(addClamped(layout.cell.left, measure.lineX(row.level)), box / 2);
    const std::int32_t top = subClamped(middle, box / 2);
    const Rect drawn{left, top, addClamped(left, box), addClamped(top, box)};
    layout.treeBox.drawn = drawn;
    layout.treeBox.pressed = pressedBox(place, layout.cell);
  }
  const std::int64_t iconEnd = measure.iconEnd(row);
  if (measure.hasIcon(row.state)) {
    const std::int32_t right = addClamped(layout.cell.left, clampToInt(iconEnd));
    const std::int32_t top = subClamped(middle, place.tree.iconSize / 2);
    layout.icon = {subClamped(right, place.tree.iconSize), top, right, addClamped(top, place.tree.iconSize)};
  }
  // A leaf, which has no box, starts half a box earlier.
  const bool isLeaf = place.level == 0 && row.state == RowState::Leaf;
  layout.leftMargin = clampToInt(iconEnd + measure.margin - (isLeaf ? box / 2 : 0));
  layout.mark.drawn = {};
  if (layout.button.glyph == Glyph::None) {
    layout.editor.left = addClamped(layout.editor.left, layout.leftMargin);
  }
}

void paintTreeCell(const CellTools& tools, const CellJob& job) {
  const CellPlace& place = job.place;
  const CellLayout layout = layoutCell(place);
  const CellStyle* record = styleOfLevel(place.column, place.level);
  if (record) {
    DrawStyle style(*record);
    style.leftMargin = layout.leftMargin;
    drawCell(tools.target(), style, layout.cell, job.text, place.clipLeft);
  }
  if (layout.cell.empty() || layout.cell.right <= place.clipLeft) return;
  const bool hasChildLine = place.row.state == RowState::Expanded;
  const CellStyle& measured = record ? *record : place.column.view;
  TreeDrawer(tools.canvas, place, layout).draw(hasChildLine ? textHeightOf(tools, measured, job.text) : 0);
}

}  // namespace tessera
