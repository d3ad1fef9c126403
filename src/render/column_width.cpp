#include "render/column_width.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "cells/cell_kinds.h"
#include "config/format_value.h"
#include "rows/suppress.h"

namespace tessera {
namespace {

class WidthMeter {
 public:
  WidthMeter(Canvas& canvas, const TextSource& texts, const ImageCache& images, const ColumnRecord& column)
      : font_(column.view.effectiveFont(texts.eval)),
        columnIndex_(texts.link.columnIndex(column.refColumnId)),
        job_{canvas, texts, images, font_, column, 0, text_} {}

  // Nothing for a row that does not count.
  std::optional<std::int32_t> rowWidth(std::int32_t row) {
    const ColumnRecord& column = job_.column;
    const CellSpan span = CellTextAndSpan(job_.texts, column, row, columnIndex_, {}, text_);
    if (span.level == 0) {
      job_.row = row;
      const std::optional<std::int32_t> width = kindOf(column).face->width(job_);
      return width ? std::optional(withMargins(column.view, *width)) : std::nullopt;
    }
    const GroupCell* group = span.level > 0 ? column.groupOfLevel(span.level) : nullptr;
    return group ? withMargins(*group, job_.textWidth()) : job_.textWidth();
  }

  std::int32_t summaryWidth() {
    displayText(job_.column.summary, job_.texts.eval, text_);
    return withMargins(job_.column.summary, job_.textWidth());
  }

 private:
  static std::int32_t withMargins(const CellStyle& style, std::int32_t width) {
    return addClamped(width, addClamped(style.leftMargin, style.rightMargin));
  }

  LogFont font_;
  std::int32_t columnIndex_;
  XString text_;
  WidthJob job_;
};

}  // namespace

std::int32_t measureColumnWidth(Canvas& canvas, const TextSource& texts, const ImageCache& images,
                                const ColumnRecord& column, bool includeSummary) {
  WidthMeter meter(canvas, texts, images, column);
  const std::int32_t rows = texts.link.rowCount();
  std::int32_t widest = 0;
  for (std::int32_t row = 1; row <= rows; ++row) {
    if (const auto width = meter.rowWidth(row)) widest = std::max(widest, *width);
    if (row == std::numeric_limits<std::int32_t>::max()) break;
  }
  return includeSummary ? std::max(widest, meter.summaryWidth()) : widest;
}

}  // namespace tessera
