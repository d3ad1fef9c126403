#include "render/column_width.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "config/format_value.h"
#include "render/cell_painters.h"
#include "render/glyphs.h"
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
    const ChildSpec& child = column_.child;
    switch (child.type) {
      case CellKind::Check:
        return withMargins(
            column_.view,
            markWidth(row, child.checkText, isOff(text_) ? child.checkBitmapOff : child.checkBitmapOn));
      case CellKind::Radio:
        return withMargins(
            column_.view,
            markWidth(row, child.radioText, isOff(text_) ? child.radioBitmapOff : child.radioBitmapOn));
      case CellKind::Image:
        return pictureWidth(row);
      default:
        return withMargins(column_.view, textWidth(text_));
    }
  }

  std::int32_t markWidth(std::int32_t row, const XString& labelColumn, Glyph mark) {
    const std::int32_t width = glyphSize(mark).width + glyphGap;
    if (labelColumn.empty()) return width;
    texts_.link.valueByName(row, labelColumn, texts_.scratch.value);
    formatValue(column_.view, texts_.scratch.value, texts_.eval, text_);
    return addClamped(width, textWidth(text_));
  }

  std::optional<std::int32_t> pictureWidth(std::int32_t row) {
    XValue& key = texts_.scratch.value;
    texts_.link.valueByName(row, column_.refColumnId, key);
    const bool isMissing = key.type() == VT_EMPTY || key.type() == VT_NULL;
    if (key.type() != VT_BSTR && !isMissing) return std::nullopt;
    const BitmapRef picture = images_.FindImage(key.asText());
    return withMargins(column_.view, picture ? picture->width : 0);
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
