#include "backends/raster/raster_canvas.h"

#include <algorithm>
#include <cassert>
#include <new>
#include <pixman.h>

#include "backends/raster/bitmap_painter.h"
#include "backends/raster/font_cache.h"
#include "backends/raster/line_painter.h"
#include "backends/raster/text_painter.h"
#include "shared/screen.h"

namespace tessera {
namespace {

struct EdgeColors {
  ColorRef Screen::*topLeft;
  ColorRef Screen::*bottomRight;
};

// In the order of Edge.
constexpr EdgeColors edgeColors[] = {
    {&Screen::highlight, &Screen::shadow},  // RaisedInner
    {&Screen::darkShadow, &Screen::light},  // SunkenInner
    {&Screen::light, &Screen::darkShadow},  // RaisedOuter
    {&Screen::shadow, &Screen::highlight},  // SunkenOuter
};

constexpr Rect all(const Bitmap& bitmap) { return {0, 0, bitmap.width, bitmap.height}; }

}  // namespace

void RasterCanvas::Release::operator()(pixman_image* image) const { pixman_image_unref(image); }

RasterCanvas::RasterCanvas(Size size) {
  pixels_.width = std::clamp(size.width, 0, maxSide);
  pixels_.height = std::clamp(size.height, 0, maxSide);
  if (pixels_.bounds().empty()) return;
  image_.reset(pixman_image_create_bits(PIXMAN_x8r8g8b8, pixels_.width, pixels_.height, nullptr, 0));
  if (!image_) throw std::bad_alloc();
  pixels_.bits = pixman_image_get_data(image_.get());
  pixels_.stride = pixman_image_get_stride(image_.get()) / static_cast<int>(sizeof(std::uint32_t));
}

RasterCanvas::~RasterCanvas() = default;

void RasterCanvas::fill(const Rect& area, ColorRef color) { fillPixels(pixels_, area, color); }

void RasterCanvas::blend(const Rect& area, ColorRef color, std::uint8_t alpha) {
  blendPixels(pixels_, area, color, alpha);
}

void RasterCanvas::blit(const Rect& area, const Bitmap& source, std::int32_t sourceX, std::int32_t sourceY) {
  copyPixels(pixels_, area, PixelSource(source), sourceX, sourceY);
}

void RasterCanvas::stretch(const Rect& area, const Bitmap& source) {
  stretchPixels(pixels_, area, PixelSource(source), all(source), noColor);
}

void RasterCanvas::blitKeyed(const Rect& area, const Bitmap& source, const Rect& sourceArea, ColorRef key) {
  stretchPixels(pixels_, area, PixelSource(source), sourceArea, key);
}

void RasterCanvas::polyline(std::span<const Point> points, ColorRef color, std::int32_t width) {
  drawPolyline(pixels_, points, color, width);
}

void RasterCanvas::edge(const Rect& area, Edge edge) {
  if (area.empty()) return;
  const EdgeColors& colors = edgeColors[static_cast<std::size_t>(edge)];
  const ColorRef topLeft = screen().*colors.topLeft, bottomRight = screen().*colors.bottomRight;
  fill({area.left, area.top, area.right, area.top + 1}, topLeft);
  fill({area.left, area.top, area.left + 1, area.bottom}, topLeft);
  // Drawn last: the corners where both colours meet are the bottom's and the right side's.
  fill({area.left, area.bottom - 1, area.right, area.bottom}, bottomRight);
  fill({area.right - 1, area.top, area.right, area.bottom}, bottomRight);
}

void RasterCanvas::focusRect(const Rect& area) { invertDottedBorder(pixels_, area); }

Size RasterCanvas::textExtent(const LogFont& font, std::u16string_view text) {
  return measureText(FontCache::ofThread(), font, text);
}

void RasterCanvas::text(const Rect& clip, std::int32_t x, std::int32_t y, const LogFont& font, ColorRef color,
                        std::u16string_view text) {
  drawText(FontCache::ofThread(), pixels_, clip, x, y, font, color, text);
}

std::unique_ptr<Canvas> RasterCanvas::createSurface(Size size) {
  return std::make_unique<RasterCanvas>(size);
}

void RasterCanvas::blitSurface(const Rect& area, const Canvas& source, std::int32_t sourceX,
                               std::int32_t sourceY) {
  const auto* const surface = dynamic_cast<const RasterCanvas*>(&source);
  assert(surface && "a surface of another kind of canvas");
  if (surface) copyPixels(pixels_, area, PixelSource(surface->pixels_), sourceX, sourceY);
}

Bitmap RasterCanvas::snapshot() const {
  Bitmap bitmap(pixels_.width, pixels_.height);
  copyPixels({bitmap.pixels.data(), bitmap.width, bitmap.width, bitmap.height}, pixels_.bounds(),
             PixelSource(pixels_), 0, 0);
  for (std::uint32_t& value : bitmap.pixels) value |= opaque;
  return bitmap;
}

}  // namespace tessera
