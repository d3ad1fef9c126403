#include "cells/cell_drawing.h"

#include <algorithm>

#include "cells/glyphs.h"
#include "cells/split_text.h"

namespace tessera {
namespace {

constexpr std::int32_t sortGlyphGap = 10;   // between the text and the glyph
constexpr std::int32_t sortGlyphInset = 2;  // between the glyph and the cell's sides

ColorRef textColorOf(const DrawTarget& target, const DrawStyle& style) {
  return style.record.isDynamic(DynamicSlot::TextColor) ? style.record.effectiveTextColor(target.eval)
                                                        : style.textColor;
}

bool hasDynamicFont(const CellStyle& record) {
  constexpr std::uint32_t fontBits = dynamicBit(DynamicSlot::FontSize) | dynamicBit(DynamicSlot::FontName) |
                                     dynamicBit(DynamicSlot::FontStyle);
  return (record.dynamicFlags & fontBits) != 0;
}

// False when nothing of the cell shows.
bool drawUnderText(const DrawTarget& target, const DrawStyle& style, const Rect& rect,
                   std::int32_t clipLeft) {
  if (rect.right <= clipLeft || rect.empty()) return false;
  paintBackground(target, style, rect, clipLeft);
  return true;
}

// The text of a cell on its way to the canvas.
class CellTextDrawer {
 public:
  CellTextDrawer(const DrawTarget& target, const DrawStyle& style, const Rect& rect, std::int32_t clipLeft)
      : target_(target), style_(style), rect_(rect), clipLeft_(clipLeft) {
    if (hasDynamicFont(style.record)) {
      computedFont_ = style.record.effectiveFont(target.eval);
      font_ = &computedFont_;
    } else {
      font_ = &style.record.font;
    }
  }

  void drawLine(std::u16string_view text) {
    measure(text);
    const std::int32_t y = alignedY(style_.align, inner_, extent_.height);
    const std::int32_t x = alignedX(style_.align, inner_, extent_.width);
    beginClip(x);
    put(text, x, y);
  }

  void drawLines(std::u16string_view text) {
    measure(text);
    const std::int32_t lines = CaptionLines::count(text);
    std::int32_t x = alignedX(style_.align, inner_, extent_.width);
    std::int32_t y = alignedY(style_.align, inner_, mulClamped(lines, extent_.height));
    beginClip(x);
    CaptionLines all(text);
    for (std::u16string_view line; all.next(line);) {
      if (lines > 1 && sideOf(style_.align) != Side::Left)
        x = alignedX(style_.align, inner_, extentOf(line).width);
      const std::int32_t lineBottom = addClamped(y, extent_.height);
      clip_.bottom = std::min(lineBottom, rect_.bottom);
      put(line, x, y);
      clip_.top = std::max(clip_.top, clip_.bottom);
      y = lineBottom;
    }
  }

 private:
  Size extentOf(std::u16string_view text) { return target_.canvas.textExtent(*font_, text); }

  void measure(std::u16string_view text) {
    inner_ = style_.inner(rect_);
    clip_ = inner_;
    // A text may be very long, and what begins at the left needs no width but for the glyph behind it.
    const bool needsWidth = sideOf(style_.align) != Side::Left || style_.record.sortMark != 0;
    extent_ = extentOf(needsWidth ? text : std::u16string_view());
  }

  void beginClip(std::int32_t x) {
    if (clip_.left < clipLeft_) clip_.left = addClamped(clipLeft_, 2);
    if (style_.record.sortMark != 0) placeSortGlyph(x);
  }

  // The glyph follows the text; where there is no room it stays at the right and the text is cut.
  void placeSortGlyph(std::int32_t x) {
    const Bitmap& bitmap = glyphBitmap(style_.record.sortBitmapUp);
    std::int32_t width = bitmap.width;
    std::int32_t left = addClamped(addClamped(x, extent_.width), sortGlyphGap);
    if (addClamped(left, width + sortGlyphInset) > rect_.right) {
      left = subClamped(rect_.right, width + sortGlyphInset);
      clip_.right = std::min(clip_.right, subClamped(left, sortGlyphInset));
    }
    if (left < addClamped(rect_.left, sortGlyphInset)) {
      left = addClamped(rect_.left, sortGlyphInset);
      width = rect_.width() - 2 * sortGlyphInset;
    }
    const std::int32_t top = addClamped(rect_.top, rect_.height() / 2 - bitmap.height / 2);
    if (top <= rect_.top) return;
    drawSortGlyph(target_.canvas, style_.record,
                  {left, top, addClamped(left, width), addClamped(top, bitmap.height)}, clipLeft_);
  }

  void put(std::u16string_view text, std::int32_t x, std::int32_t y) {
    if (clip_.empty() || text.empty()) return;
    target_.canvas.text(clip_, x, y, *font_, textColorOf(target_, style_), text);
  }

  const DrawTarget& target_;
  const DrawStyle& style_;
  Rect rect_;
  std::int32_t clipLeft_;
  LogFont computedFont_;
  const LogFont* font_;
  Rect inner_;   // the cell without its margins: texts are placed in it
  Rect clip_;    // and cut to this part of it
  Size extent_;  // of the whole text; no width where none is needed
};

}  // namespace

void drawSortGlyph(Canvas& canvas, const CellStyle& record, const Rect& area, std::int32_t clipLeft) {
  const std::int32_t hidden = std::max(0, subClamped(clipLeft, area.left));
  if (record.sortMark < 1 || record.sortMark > 2 || hidden >= area.width()) return;
  const Bitmap& bitmap = glyphBitmap(record.sortMark == 1 ? record.sortBitmapUp : record.sortBitmapDown);
  const std::int32_t sourceLeft = mulDiv(hidden, bitmap.width, area.width());
  canvas.blitKeyed({area.left + hidden, area.top, area.right, area.bottom}, bitmap,
                   {sourceLeft, 0, bitmap.width, bitmap.height}, glyphKey);
}

void drawCell(const DrawTarget& target, const DrawStyle& style, const Rect& rect, std::u16string_view text,
              std::int32_t clipLeft) {
  if (!drawUnderText(target, style, rect, clipLeft) || text.empty()) return;
  CellTextDrawer(target, style, rect, clipLeft).drawLine(text);
}

void drawHeaderText(const DrawTarget& target, const DrawStyle& style, const Rect& rect,
                    std::u16string_view text, std::int32_t clipLeft) {
  if (!drawUnderText(target, style, rect, clipLeft) || text.empty()) return;
  CellTextDrawer(target, style, rect, clipLeft).drawLines(text);
}

}  // namespace tessera
