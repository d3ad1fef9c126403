#include <algorithm>
#include <array>
#include <optional>
#include <span>

#include "cells/cell_drawing.h"
#include "cells/glyphs.h"

namespace tessera {
namespace {

ColorRef backColorOf(const DrawTarget& target, const DrawStyle& style) {
  return style.record.isDynamic(DynamicSlot::BackColor) ? style.record.effectiveBackColor(target.eval)
                                                        : style.backColor;
}

void blendedFill(Canvas& canvas, const DrawStyle& style, const Rect& rect, ColorRef color) {
  canvas.blend(rect, color, alphaOfPercent(subClamped(100, style.record.alphaRate)));
}

// Where a bitmap of its own size lies in a cell, and which part of it shows.
struct ImagePlace {
  Rect area;
  std::int32_t sourceX = 0;
  std::int32_t sourceY = 0;
};

ImagePlace placeImage(std::int32_t align, const Rect& rect, const Bitmap& image) {
  const std::int32_t x = alignedX(align, rect, image.width);
  const std::int32_t y = alignedY(align, rect, image.height);
  ImagePlace place;
  place.area.left = std::max(x, rect.left);
  place.area.top = std::max(y, rect.top);
  place.sourceX = place.area.left - x;
  place.sourceY = place.area.top - y;
  place.area.right = addClamped(place.area.left, std::min(image.width - place.sourceX, rect.width()));
  place.area.bottom = addClamped(place.area.top, std::min(image.height - place.sourceY, rect.height()));
  return place;
}

void placeKeyed(Canvas& canvas, const Rect& rect, const Bitmap& image, std::int32_t align, ColorRef key) {
  const auto [area, x, y] = placeImage(align, rect, image);
  canvas.blitKeyed(area, image, {x, y, x + area.width(), y + area.height()}, key);
}

void paintPlaced(const DrawTarget& target, const DrawStyle& style, const Rect& rect) {
  const ColorRef backColor = backColorOf(target, style);
  if ((style.imageMode & image_mode::transparent) != 0) {
    target.canvas.fill(rect, backColor);
    if (style.image) placeKeyed(target.canvas, rect, *style.image, style.align, style.transparentColor);
    return;
  }
  blendedFill(target.canvas, style, rect, backColor);
  if (!style.image) return;
  const auto [area, x, y] = placeImage(style.align, rect, *style.image);
  target.canvas.blit(area, *style.image, x, y);
}

void paintStretched(const DrawTarget& target, const DrawStyle& style, const Rect& rect) {
  if (!style.image) return;
  if ((style.imageMode & image_mode::transparent) == 0) return target.canvas.stretch(rect, *style.image);
  target.canvas.blitKeyed(rect, *style.image, {0, 0, style.image->width, style.image->height},
                          style.transparentColor);
}

// Neighbours share a line: it lies just outside the left and top of a cell and just inside its right and
// bottom. At the edge of the window the outer line moves in. A cell that was cut on its left has no line
// there.
void drawLineBorder(Canvas& canvas, const Rect& rect, bool cut, ColorRef color) {
  const std::int32_t left = cut ? rect.left : subClamped(rect.left == 0 ? 1 : rect.left, 1);
  const std::int32_t top = subClamped(rect.top == 0 ? 1 : rect.top, 1);
  const std::int32_t right = subClamped(rect.right, 1);
  const std::int32_t bottom = subClamped(rect.bottom, 1);
  const std::array<Point, 5> points{
      {{left, top}, {right, top}, {right, bottom}, {left, bottom}, {left, top}}};
  canvas.polyline(std::span(points).first(cut ? 4 : 5), color, 1);
}

std::optional<Edge> edgeOf(std::int32_t borderStyle) {
  if ((borderStyle & border::raisedInner) != 0) return Edge::RaisedInner;
  if ((borderStyle & border::sunkenInner) != 0) return Edge::SunkenInner;
  if ((borderStyle & border::raisedOuter) != 0) return Edge::RaisedOuter;
  if ((borderStyle & border::sunkenOuter) != 0) return Edge::SunkenOuter;
  return std::nullopt;
}

void drawBorder(const DrawTarget& target, const DrawStyle& style, const Rect& rect, bool cut) {
  if ((style.record.borderStyle & border::line) != 0) {
    drawLineBorder(target.canvas, rect, cut, style.record.effectiveBorderColor(target.eval));
  } else if (const std::optional<Edge> edge = edgeOf(style.record.borderStyle)) {
    target.canvas.edge(rect, *edge);
  }
}

}  // namespace

void paintBackground(const DrawTarget& target, const DrawStyle& style, const Rect& whole,
                     std::int32_t clipLeft) {
  const bool cut = whole.left < clipLeft;
  const Rect rect{cut ? clipLeft : whole.left, whole.top, whole.right, whole.bottom};
  if (style.imageMode == image_mode::solid) {
    const ColorRef color = backColorOf(target, style);
    if (target.ground != color) target.canvas.fill(rect, color);
  } else if ((style.imageMode & image_mode::blended) != 0) {
    blendedFill(target.canvas, style, rect, style.backColor);
  } else if ((style.imageMode & image_mode::placed) != 0) {
    paintPlaced(target, style, rect);
  } else if ((style.imageMode & image_mode::stretched) != 0) {
    paintStretched(target, style, rect);
  }
  drawBorder(target, style, rect, cut);
}

void drawGlyph(Canvas& canvas, Glyph glyph, const Rect& rect, ColorRef backColor, std::int32_t clipLeft) {
  if (rect.right <= clipLeft || rect.empty()) return;
  const Rect shown{std::max(rect.left, clipLeft), rect.top, rect.right, rect.bottom};
  canvas.fill(shown, backColor);
  placeKeyed(canvas, shown, glyphBitmap(glyph), align::centerCenter, glyphKey);
}

}  // namespace tessera
