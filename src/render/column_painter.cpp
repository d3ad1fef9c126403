#include "render/column_painter.h"

#include "cells/cell_kinds.h"
#include "rows/suppress.h"

namespace tessera {
namespace {

// Goes down the page for one column.
class ColumnPainter {
 public:
  ColumnPainter(const PaintContext& context, const ColumnRecord& column, std::optional<ColorRef> ground)
      : context_(context),
        column_(column),
        ground_(ground),
        frame_(context.model.frame),
        kind_(kindOf(column)),
        texts_(context.texts()),
        tools_{context.canvas, texts_, context.model.images, context.scratch.cells,
               context.model.settings.Enable},
        columnIndex_(context.model.link.columnIndex(column.refColumnId)),
        clipLeft_(frame_.clipLeft(column)),
        bottomLimit_(context.dataRect().bottom),
        isTree_(isTreeCell(column, context.model.config.tree)),
        spans_(kind_.spans && !isTree_),
        isFocusColumn_(isFocusColumn()) {}

  void paint() {
    const std::vector<RowView>& page = context_.scratch.rows;
    for (std::size_t index = 0; index < page.size();) {
      const std::int32_t rows = paintRow(page[index], mostRows(index));
      if (rows < 0) return;
      if (rows == 0) {
        ++index;
        continue;
      }
      index += static_cast<std::size_t>(rows);
      place_ = addClamped(place_, rows);
      if (frame_.wholeCell(column_, place_).top >= bottomLimit_) return;
    }
  }

 private:
  static constexpr std::int32_t endOfColumn = -1;

  bool isFocusColumn() const {
    const ColumnPosition focus = context_.model.focus.FocusColumn;
    return focus && focus->value().id == column_.id;
  }

  // How many rows of the page from here on follow each other in the data set, too: no merged cell goes on
  // beyond them.
  std::int32_t mostRows(std::size_t index) const {
    const std::vector<RowView>& page = context_.scratch.rows;
    const std::int32_t first = page[index].row.number;
    std::int32_t count = 1;
    if (column_.suppressRefs.empty()) return count;
    while (++index < page.size() && page[index].row.number == first + count) ++count;
    return count;
  }

  // The rows of the page that the cell took: 0 for a row without a place, endOfColumn when no further row is
  // painted.
  std::int32_t paintRow(const RowView& row, std::int32_t rowsLeft) {
    const std::int32_t index = isTree_ && row.groupColumn != 0 ? row.groupColumn : columnIndex_;
    XString& text = context_.scratch.cellText;
    const CellSpan span = CellTextAndSpan(texts_, column_, row.row.number, index,
                                          {frame_.rowHeight, spans_ ? rowsLeft : 1}, text);
    CellJob job{{.column = column_,
                 .tree = context_.model.config.tree,
                 .cell = frame_.wholeCell(column_, place_),
                 .clipLeft = clipLeft_,
                 .row = row,
                 .level = span.level},
                text,
                ground_};
    if (isTree_) {
      paintTreeCell(tools_, job);
      return 1;
    }
    if (span.level < 0) return 0;
    if (span.level > 0) return paintGroupCell(job);
    job.place.cell.bottom = addClamped(job.place.cell.bottom, mulClamped(span.span - 1, frame_.rowHeight));
    job.place.showsButton = isFocusColumn_ && context_.model.focus.FocusRow == row.row &&
                            showsButton(column_, context_.model.eval);
    return kind_.face->paint(tools_, job) ? span.span : endOfColumn;
  }

  std::int32_t paintGroupCell(const CellJob& job) const {
    if (const GroupCell* group = column_.groupOfLevel(job.place.level)) {
      drawCell(context_.target(), DrawStyle(*group), job.place.cell, job.text, clipLeft_);
    }
    return 1;
  }

  const PaintContext& context_;
  const ColumnRecord& column_;
  std::optional<ColorRef> ground_;
  const GridFrame& frame_;
  const CellKindRow& kind_;
  TextSource texts_;
  CellTools tools_;
  std::int32_t columnIndex_;
  std::int32_t clipLeft_;
  std::int32_t bottomLimit_;
  bool isTree_;
  bool spans_;
  bool isFocusColumn_;
  std::int32_t place_ = 0;  // on the page, of the row that comes next: not all rows take one
};

}  // namespace

void paintColumnCells(const PaintContext& context, const ColumnRecord& column,
                      std::optional<ColorRef> ground) {
  if (context.model.frame.rowHeight <= 0) return;
  ColumnPainter(context, column, ground).paint();
}

}  // namespace tessera
