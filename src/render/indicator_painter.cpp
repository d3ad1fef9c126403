#include "render/indicator_painter.h"

#include <array>
#include <charconv>

#include "cells/glyphs.h"

namespace tessera {
namespace {

Glyph lightOf(const PaintModel& model) {
  if (!model.link.dataSet()) return Glyph::LightRed;
  return model.focus.state == FocusState::Outside ? Glyph::LightGrey : Glyph::LightGreen;
}

struct StatusGlyph {
  std::int32_t status;
  Glyph unmarked;
  Glyph marked;
};
constexpr std::array<StatusGlyph, 3> statusGlyphs{{
    {rowInserted, Glyph::Inserted, Glyph::InsertedMarked},
    {rowDeleted, Glyph::Deleted, Glyph::DeletedMarked},
    {rowUpdated, Glyph::Updated, Glyph::UpdatedMarked},
}};

Glyph glyphOfStatus(std::int32_t status, bool marked) {
  for (const StatusGlyph& entry : statusGlyphs) {
    if (entry.status == status) return marked ? entry.marked : entry.unmarked;
  }
  return Glyph::None;
}

class IndicatorPainter {
 public:
  explicit IndicatorPainter(const PaintContext& context)
      : context_(context), model_(context.model), record_(context.model.config.indicator) {}

  void paintCorner() const {
    DrawStyle style = glyphStyle(lightOf(model_));
    style.align = align::centerCenter;
    drawCell(context_.target(), style, cellAt(0, model_.frame.headerBand), {}, 0);
  }

  void paintSummary(std::int32_t top) const {
    paintText(top, record_.indexNumber ? std::u16string_view(u"S") : std::u16string_view());
  }

  void paintRow(std::size_t index, std::int32_t top) const {
    const Row row = model_.page.VisibleRows[index];
    model_.eval.ExprRow = row.number;
    if (record_.indexNumber) return paintNumber(top, row.number);
    const Glyph glyph = glyphOfStatus(model_.link.sysStatus(row.number), isMarked(index, row));
    if (glyph == Glyph::None) return paintText(top, {});
    drawCell(context_.target(), glyphStyle(glyph), cellAt(top, model_.frame.rowHeight), {}, 0);
  }

 private:
  bool isMarked(std::size_t index, Row row) const {
    return model_.focus.CellMode ? model_.focus.FocusRow == row : context_.scratch.selected[index];
  }

  DrawStyle glyphStyle(Glyph glyph) const {
    DrawStyle style(record_);
    style.imageMode = image_mode::placed | image_mode::transparent;
    style.image = &glyphBitmap(glyph);
    style.transparentColor = glyphKey;
    return style;
  }

  void paintText(std::int32_t top, std::u16string_view text) const {
    DrawStyle style(record_);
    style.imageMode = image_mode::solid;
    drawCell(context_.target(), style, cellAt(top, model_.frame.rowHeight), text, 0);
  }

  void paintNumber(std::int32_t top, std::int32_t number) const {
    std::array<char, 12> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    XString& text = context_.scratch.cellText;
    text.assignNarrow({digits.data(), static_cast<std::size_t>(end.ptr - digits.data())});
    paintText(top, text);
  }

  Rect cellAt(std::int32_t top, std::int32_t height) const {
    return {0, top, model_.frame.indicatorWidth, addClamped(top, height)};
  }

  const PaintContext& context_;
  const PaintModel& model_;
  const IndicatorRecord& record_;
};

}  // namespace

void paintIndicator(const PaintContext& context) {
  const GridFrame& frame = context.model.frame;
  if (frame.indicatorWidth <= 0) return;
  const IndicatorPainter painter(context);
  painter.paintCorner();
  if (frame.rowHeight <= 0) return;
  if (frame.summary == SummaryBand::Top) painter.paintSummary(frame.headerBand);
  for (std::size_t index = 0; index < context.model.page.VisibleRows.size(); ++index) {
    painter.paintRow(index, frame.rowTop(static_cast<std::int32_t>(index)));
  }
  if (frame.summary == SummaryBand::Bottom) painter.paintSummary(context.dataRect().bottom);
}

}  // namespace tessera
