// A real canvas that counts what is asked of it.

#pragma once

#include <memory>

#include "backends/raster/raster_canvas.h"

namespace tessera {

// Everything is painted too, so that wild coordinates reach the pixels. Operations of memory surfaces count
// with those of the canvas that made them.
class CountingCanvas : public RasterCanvas {
 public:
  explicit CountingCanvas(Size size,
                          std::shared_ptr<std::int64_t> operations = std::make_shared<std::int64_t>(0))
      : RasterCanvas(size), operations_(std::move(operations)) {}

  std::int64_t operations() const { return *operations_; }

  void fill(const Rect& area, ColorRef color) override { ++*operations_, RasterCanvas::fill(area, color); }
  void blend(const Rect& area, ColorRef color, std::uint8_t alpha) override {
    ++*operations_, RasterCanvas::blend(area, color, alpha);
  }
  void blit(const Rect& area, const Bitmap& source, std::int32_t x, std::int32_t y) override {
    ++*operations_, RasterCanvas::blit(area, source, x, y);
  }
  void stretch(const Rect& area, const Bitmap& source) override {
    ++*operations_, RasterCanvas::stretch(area, source);
  }
  void blitKeyed(const Rect& area, const Bitmap& source, const Rect& from, ColorRef key) override {
    ++*operations_, RasterCanvas::blitKeyed(area, source, from, key);
  }
  void polyline(std::span<const Point> points, ColorRef color, std::int32_t width) override {
    ++*operations_, RasterCanvas::polyline(points, color, width);
  }
  void edge(const Rect& area, Edge edge) override { ++*operations_, RasterCanvas::edge(area, edge); }
  void focusRect(const Rect& area) override { ++*operations_, RasterCanvas::focusRect(area); }
  Size textExtent(const LogFont& font, std::u16string_view text) override {
    return ++*operations_, RasterCanvas::textExtent(font, text);
  }
  void text(const Rect& clip, std::int32_t x, std::int32_t y, const LogFont& font, ColorRef color,
            std::u16string_view text) override {
    ++*operations_, RasterCanvas::text(clip, x, y, font, color, text);
  }
  std::unique_ptr<Canvas> createSurface(Size size) override {
    ++*operations_;
    return std::make_unique<CountingCanvas>(size, operations_);
  }
  void blitSurface(const Rect& area, const Canvas& source, std::int32_t x, std::int32_t y) override {
    ++*operations_, RasterCanvas::blitSurface(area, source, x, y);
  }

 private:
  std::shared_ptr<std::int64_t> operations_;
};

}  // namespace tessera
