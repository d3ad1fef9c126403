// The drawing operations that every cell of the grid ends in.

#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "cells/draw_style.h"
#include "platform/canvas.h"

namespace tessera {

// What a drawing operation draws on and evaluates with; the row of `eval` is the one that is painted.
struct DrawTarget {
  Canvas& canvas;
  EvalState& eval;
  // The colour that all of the cell's area has already: filling it once more would change nothing.
  std::optional<ColorRef> ground = {};
};

// Background, border, a single line of text and the sort glyph. Nothing left of `clipLeft` is touched: the
// background ends there, and the text is placed as if uncut. A cell that lies wholly behind it draws nothing.
void drawCell(const DrawTarget& target, const DrawStyle& style, const Rect& rect, std::u16string_view text,
              std::int32_t clipLeft);

// The same with ";" in the text as a line break.
void drawHeaderText(const DrawTarget& target, const DrawStyle& style, const Rect& rect,
                    std::u16string_view text, std::int32_t clipLeft);

// Background and border of `rect` from `clipLeft` on, at which `rect` must not end.
void paintBackground(const DrawTarget& target, const DrawStyle& style, const Rect& rect,
                     std::int32_t clipLeft);

// The glyph of the record's sort direction, stretched over `area` and cut at `clipLeft`.
void drawSortGlyph(Canvas& canvas, const CellStyle& record, const Rect& area, std::int32_t clipLeft);

// A glyph in the middle of `rect` on `backColor`, without a border.
void drawGlyph(Canvas& canvas, Glyph glyph, const Rect& rect, ColorRef backColor, std::int32_t clipLeft);

// The constant alpha of a blended fill: the low byte of the rate's share of 255.
constexpr std::uint8_t alphaOfPercent(std::int32_t percent) {
  return static_cast<std::uint8_t>(static_cast<std::int64_t>(percent) * 255 / 100);
}

}  // namespace tessera
