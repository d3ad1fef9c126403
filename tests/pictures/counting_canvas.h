// A real canvas that counts what is asked of it.

#pragma once

#include <memory>

#include "backends/raster/raster_canvas.h"

namespace tessera {

// Everything is painted too, so that wild coordinates reach the pixels. Operations of memory surfaces count
// with those of the canvas that made them.
class CountingCanvas : public Canvas {
 public:
  explicit CountingCanvas(Size size);

  std::int64_t operations() const { return *operations_; }
  const RasterCanvas& painted() const { return *canvas_; }

  Size size() const override { return canvas_->size(); }
  void fill(const Rect& area, ColorRef color) override;
  void blend(const Rect& area, ColorRef color, std::uint8_t alpha) override;
  void blit(const Rect& area, const Bitmap& source, std::int32_t sourceX, std::int32_t sourceY) override;
  void stretch(const Rect& area, const Bitmap& source) override;
  void blitKeyed(const Rect& area, const Bitmap& source, const Rect& sourceArea, ColorRef key) override;
  void polyline(std::span<const Point> points, ColorRef color, std::int32_t width) override;
  void edge(const Rect& area, Edge edge) override;
  void focusRect(const Rect& area) override;
  Size textExtent(const LogFont& font, std::u16string_view text) override;
  void text(const Rect& clip, std::int32_t x, std::int32_t y, const LogFont& font, ColorRef color,
            std::u16string_view text) override;
  std::unique_ptr<Canvas> createSurface(Size size) override;
  bool isLike(const Canvas& surface) const override {
    return dynamic_cast<const CountingCanvas*>(&surface) != nullptr;
  }
  void blitSurface(const Rect& area, const Canvas& source, std::int32_t sourceX,
                   std::int32_t sourceY) override;

 private:
  RasterCanvas& counted();

  std::unique_ptr<RasterCanvas> canvas_;
  std::shared_ptr<std::int64_t> operations_;
};

}  // namespace tessera
