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
      : canvas_(canvas),
        texts_(texts),
        images_(images),
        column_(column),
        font_(column.view.effectiveFont(texts.eval)),
        columnIndex_(texts.link.columnIndex(column.refColumnId)) {}

  // Nothing for a row that does not count.
  std::optional<std::int32_t> rowWidth(std::int32_t row) {
    const CellSpan span = CellTextAndSpan(texts_, column_, row, columnIndex_, {}, text_);
    if (span.level == 0) return dataRowWidth(row);
    const GroupCell* group = span.level > 0 ? column_.groupOfLevel(span.level) : nullptr;
    return group ? withMargins(*group, textWidth(text_)) : textWidth(text_);
  }

  std::int32_t summaryWidth() {
    displayText(column_.summary, texts_.eval, text_);
    return withMargins(column_.summary, textWidth(text_));
  }

 private:
  std::int32_t textWidth(std::u16string_view text) {
    return text.empty() ? 0 : canvas_.textExtent(font_, text).width;
  }

  static std::int32_t withMargins(const CellStyle& style, std::int32_t width) {
    return addClamped(width, addClamped(style.leftMargin, style.rightMargin));
  }

  std::optional<std::int32_t> dataRowWidth(std::int32_t row) {
    const auto width = kindOf(column_).face->width({canvas_, texts_, images_, font_, column_, row, text_});
    if (!width) return std::nullopt;
    return withMargins(column_.view, *width);
  }

  Canvas& canvas_;
  const TextSource& texts_;
  const ImageCache& images_;
  const ColumnRecord& column_;
  LogFont font_;
  std::int32_t columnIndex_;
  XString text_;
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
