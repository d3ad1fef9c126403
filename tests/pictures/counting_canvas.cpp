#include "pictures/counting_canvas.h"

namespace tessera {

CountingCanvas::CountingCanvas(Size size)
    : canvas_(std::make_unique<RasterCanvas>(size)), operations_(std::make_shared<std::int64_t>(0)) {}

RasterCanvas& CountingCanvas::counted() {
  ++*operations_;
  return *canvas_;
}

void CountingCanvas::fill(const Rect& area, ColorRef color) { counted().fill(area, color); }

void CountingCanvas::blend(const Rect& area, ColorRef color, std::uint8_t alpha) {
  counted().blend(area, color, alpha);
}

void CountingCanvas::blit(const Rect& area, const Bitmap& source, std::int32_t sourceX,
                          std::int32_t sourceY) {
  counted().blit(area, source, sourceX, sourceY);
}

void CountingCanvas::stretch(const Rect& area, const Bitmap& source) { counted().stretch(area, source); }

void CountingCanvas::blitKeyed(const Rect& area, const Bitmap& source, const Rect& sourceArea, ColorRef key) {
  counted().blitKeyed(area, source, sourceArea, key);
}

void CountingCanvas::polyline(std::span<const Point> points, ColorRef color, std::int32_t width) {
  counted().polyline(points, color, width);
}

void CountingCanvas::edge(const Rect& area, Edge edge) { counted().edge(area, edge); }

void CountingCanvas::focusRect(const Rect& area) { counted().focusRect(area); }

Size CountingCanvas::textExtent(const LogFont& font, std::u16string_view text) {
  return counted().textExtent(font, text);
}

void CountingCanvas::text(const Rect& clip, std::int32_t x, std::int32_t y, const LogFont& font,
                          ColorRef color, std::u16string_view text) {
  counted().text(clip, x, y, font, color, text);
}

std::unique_ptr<Canvas> CountingCanvas::createSurface(Size size) {
  ++*operations_;
  auto surface = std::make_unique<CountingCanvas>(size);
  surface->operations_ = operations_;
  return surface;
}

void CountingCanvas::blitSurface(const Rect& area, const Canvas& source, std::int32_t sourceX,
                                 std::int32_t sourceY) {
  counted().blitSurface(area, *dynamic_cast<const CountingCanvas&>(source).canvas_, sourceX, sourceY);
}

}  // namespace tessera
