// The drawing port.

#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "shared/bitmap.h"
#include "shared/color.h"
#include "shared/log_font.h"
#include "shared/rect.h"

namespace tessera {

enum class Edge { RaisedInner, SunkenInner, RaisedOuter, SunkenOuter };

// A surface of pixels that is drawn on in device pixels. Nothing outside the surface is touched, whatever the
// coordinates; an empty rectangle draws nothing. Implementers cache fonts, glyphs and shaped texts behind it:
// a LogFont is cheap to hand over and equal records mean the same font. Where a bitmap is translucent,
// blit(), stretch() and blitKeyed() lay its pixels over what is there by their own alpha, as blend() does;
// the pixels of other bitmaps replace it, whatever their alpha byte says.
class Canvas {
 public:
  virtual ~Canvas() = default;

  virtual Size size() const = 0;

  // `area` in `color`, opaque.
  virtual void fill(const Rect& area, ColorRef color) = 0;
  // `color` over what is there; `alpha` 0 leaves it, 255 replaces it.
  virtual void blend(const Rect& area, ColorRef color, std::uint8_t alpha) = 0;
  // The part of `source` that starts at (sourceX, sourceY) and has the size of `area`.
  virtual void blit(const Rect& area, const Bitmap& source, std::int32_t sourceX, std::int32_t sourceY) = 0;
  // The whole of `source` stretched over `area`.
  virtual void stretch(const Rect& area, const Bitmap& source) = 0;
  // `sourceArea` of `source` stretched over `area` without the pixels of colour `key`, whatever their
  // alpha. noColor keys nothing.
  virtual void blitKeyed(const Rect& area, const Bitmap& source, const Rect& sourceArea, ColorRef key) = 0;
  // Straight lines from point to point, all ends drawn. A width of 0 counts as 1; wider lines are centred.
  virtual void polyline(std::span<const Point> points, ColorRef color, std::int32_t width) = 0;
  // A 3-D edge of one pixel inside the border of `area`, in the system colours.
  virtual void edge(const Rect& area, Edge edge) = 0;
  // A one-pixel dotted rectangle inside the border of `area` that inverts every second pixel.
  virtual void focusRect(const Rect& area) = 0;
  // Width and line height of a single-line text. The height is the font's, even if the text is empty.
  virtual Size textExtent(const LogFont& font, std::u16string_view text) = 0;
  // A single-line text with its line's top left corner at (x, y), cut to `clip`.
  virtual void text(const Rect& clip, std::int32_t x, std::int32_t y, const LogFont& font, ColorRef color,
                    std::u16string_view text) = 0;

  // A surface of the same kind and the given size whose contents are undefined.
  virtual std::unique_ptr<Canvas> createSurface(Size size) = 0;
  // Whether createSurface() would give a surface like this one: of the same kind and scale.
  virtual bool isLike(const Canvas& surface) const = 0;
  // As blit(), from a surface that is like the canvas.
  virtual void blitSurface(const Rect& area, const Canvas& source, std::int32_t sourceX,
                           std::int32_t sourceY) = 0;
};

}  // namespace tessera
