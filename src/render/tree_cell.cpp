#include <algorithm>
#include <array>

#include "render/cell_painters.h"
#include "render/tree_layout.h"

namespace tessera {
namespace {

constexpr ColorRef gray = rgb(0x80, 0x80, 0x80);
constexpr ColorRef black = 0;

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
  TreeDrawer(const PaintContext& context, const CellJob& job, const TreeLayout& layout)
      : context_(context),
        job_(job),
        layout_(layout),
        tree_(layout.tree),
        pen_(context.canvas, job.clipLeft),
        level_(job.row.level),
        x_(addClamped(job.rect.left, layout.lineX(level_))),
        middle_(addClamped(job.rect.top, job.rect.height() / 2)) {}

  // `textHeight` is the height of the row's text; only an expanded row asks for it.
  void draw(std::int32_t textHeight) const {
    if (tree_.hasLine) drawAncestorLines();
    if (job_.row.state != RowState::Leaf) {
      drawBoxWithLines(textHeight);
    } else if (tree_.hasLine) {
      drawLeafLines();
    }
  }

 private:
  bool hasSiblingBelow() const { return job_.row.hasSiblingBelow(level_); }

  void drawAncestorLines() const {
    const std::int32_t canvasRight = context_.canvas.size().width;
    for (std::int32_t level = level_ - 1; level >= 1; --level) {
      const std::int32_t x = addClamped(job_.rect.left, layout_.lineX(level));
      if (x >= canvasRight || !job_.row.hasSiblingBelow(level)) continue;
      pen_.vertical(x, job_.rect.top, job_.rect.bottom, gray);
    }
  }

  void drawLeafLines() const {
    pen_.horizontal(x_, addClamped(x_, tree_.indentWidth), middle_, gray);
    if (job_.row.isFirst) {
      pen_.vertical(x_, middle_, job_.rect.bottom, gray);
    } else {
      pen_.vertical(x_, job_.rect.top, hasSiblingBelow() ? job_.rect.bottom : middle_, gray);
    }
  }

  Rect boxRect() const {
    const std::int32_t left = subClamped(x_, tree_.thumbSize / 2);
    const std::int32_t top = subClamped(middle_, tree_.thumbSize / 2);
    const std::int32_t side = subClamped(tree_.thumbSize, 1);
    return {left, top, addClamped(left, side), addClamped(top, side)};
  }

  void drawBoxWithLines(std::int32_t textHeight) const {
    const Rect box = boxRect();
    if (tree_.hasLine && !job_.row.isFirst) pen_.vertical(x_, job_.rect.top, box.top, gray);
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
    if (job_.row.state == RowState::Collapsed) {
      pen_.vertical(x_, addClamped(box.top, 2), subClamped(box.bottom, 1), black);
    }
  }

  void drawLinesOfBox(const Rect& box, std::int32_t textHeight) const {
    if (job_.row.state == RowState::Expanded) {
      const std::int32_t height = layout_.hasIcon(job_.row.state) ? tree_.iconSize : textHeight;
      pen_.vertical(childLineX(), addClamped(middle_, height / 2 + 2), job_.rect.bottom, gray);
    }
    pen_.horizontal(box.right, addClamped(box.right, tree_.indentWidth), middle_, gray);
    if (hasSiblingBelow()) pen_.vertical(x_, box.bottom, job_.rect.bottom, gray);
  }

  std::int32_t childLineX() const {
    const std::int32_t x = addClamped(x_, layout_.step);
    if (!layout_.odd) return x;
    return level_ % 2 != 0 ? addClamped(x, 1) : subClamped(x, 1);
  }

  const PaintContext& context_;
  const CellJob& job_;
  const TreeLayout& layout_;
  const TreeInfo& tree_;
  LinePen pen_;
  std::int32_t level_;
  std::int32_t x_;       // of the row's own line
  std::int32_t middle_;  // of the cell, from top to bottom
};

// The style of the row's text; null when it has none.
const CellStyle* styleOfLevel(const ColumnRecord& column, std::int32_t level) {
  if (level == 0) return &column.view;
  return level > 0 ? column.groupOfLevel(level) : nullptr;
}

std::int32_t textHeightOf(const PaintContext& context, const CellStyle& record, std::u16string_view text) {
  const std::u16string_view first = text.empty() ? std::u16string_view(u" ") : text.substr(0, 1);
  return context.canvas.textExtent(record.effectiveFont(context.model.eval), first).height;
}

}  // namespace

void paintTreeCell(const PaintContext& context, const CellJob& job, std::int32_t level) {
  const TreeLayout layout(context.model.config.tree, job.column.view.leftMargin);
  const CellStyle* record = styleOfLevel(job.column, level);
  if (record) {
    DrawStyle style(*record);
    style.leftMargin = layout.textLeft(job.row, level == 0);
    drawCell(context.target(), style, job.rect, job.text, job.clipLeft);
  }
  if (job.rect.empty() || job.rect.right <= job.clipLeft) return;
  const bool hasChildLine = job.row.state == RowState::Expanded;
  const CellStyle& measured = record ? *record : job.column.view;
  TreeDrawer(context, job, layout).draw(hasChildLine ? textHeightOf(context, measured, job.text) : 0);
}

}  // namespace tessera
