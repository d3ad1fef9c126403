#include "render/column_painter.h"

#include "render/cell_painters.h"
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
        columnIndex_(context.model.link.columnIndex(column.refColumnId)),
        clipLeft_(context.clipLeft(column)),
        bottomLimit_(context.dataRect().bottom),
        isTree_(column.hasTree && context.model.config.tree.rowMode != RowMode::Plain),
        top_(addClamped(frame_.firstRowTop(), column.view.rect.top)) {}

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
      top_ = addClamped(top_, mulClamped(rows, frame_.rowHeight));
      if (top_ >= bottomLimit_) return;
    }
  }

 private:
  static constexpr std::int32_t endOfColumn = -1;

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
    const bool spans = column_.child.type == CellKind::None && !isTree_;
    const std::int32_t index = isTree_ && row.groupColumn != 0 ? row.groupColumn : columnIndex_;
    XString& text = context_.scratch.cellText;
    const CellSpan span = CellTextAndSpan(context_.texts(), column_, row.row.number, index,
                                          {frame_.rowHeight, spans ? rowsLeft : 1}, text);
    CellJob job{column_, row, rowRect(), clipLeft_, text, ground_};
    if (isTree_) {
      paintTreeCell(context_, job, span.level);
      return 1;
    }
    if (span.level < 0) return 0;
    if (span.level > 0) return paintGroupCell(job, span.level);
    if (!spans) return paintDataCell(job) ? 1 : endOfColumn;
    job.rect.bottom = addClamped(job.rect.bottom, mulClamped(span.span - 1, frame_.rowHeight));
    paintPlainCell(context_, job);
    return span.span;
  }

  std::int32_t paintGroupCell(const CellJob& job, std::int32_t level) const {
    if (const GroupCell* group = column_.groupOfLevel(level)) {
      drawCell(context_.target(), DrawStyle(*group), job.rect, job.text, job.clipLeft);
    }
    return 1;
  }

  bool paintDataCell(const CellJob& job) const {
    switch (column_.child.type) {
      case CellKind::None:
        paintPlainCell(context_, job);
        break;
      case CellKind::Edit:
        paintEditCell(context_, job);
        break;
      case CellKind::Combo:
      case CellKind::Lookup:
        paintDropCell(context_, job);
        break;
      case CellKind::Check:
        paintCheckCell(context_, job);
        break;
      case CellKind::Radio:
        paintRadioCell(context_, job);
        break;
      case CellKind::Image:
        return paintImageCell(context_, job);
      case CellKind::Bar:
        paintBarCell(context_, job);
        break;
    }
    return true;
  }

  Rect rowRect() const {
    const Rect& view = column_.view.rect;
    return {view.left, top_, view.right, addClamped(top_, view.height())};
  }

  const PaintContext& context_;
  const ColumnRecord& column_;
  std::optional<ColorRef> ground_;
  const GridFrame& frame_;
  std::int32_t columnIndex_;
  std::int32_t clipLeft_;
  std::int32_t bottomLimit_;
  bool isTree_;
  std::int32_t top_;  // of the cell in the row that comes next
};

}  // namespace

void paintColumnCells(const PaintContext& context, const ColumnRecord& column,
                      std::optional<ColorRef> ground) {
  if (context.model.frame.rowHeight <= 0) return;
  ColumnPainter(context, column, ground).paint();
}

}  // namespace tessera
