// A canvas in logical pixels above one in device pixels.

#pragma once

#include <memory>

#include "backends/raster/raster_canvas.h"
#include "platform/canvas.h"

namespace tessera {

// Every logical edge stands for one device edge, whoever it belongs to: areas that meet on the logical canvas
// meet on the device, at any ratio, and their sizes differ by a device pixel at most. Texts are set in the
// device's size; their extents are rounded up to logical pixels.
class ScaledCanvas : public Canvas {
 public:
  // What must hold: ratio > 0.
  ScaledCanvas(Size size, double ratio);

  // The device pixels that a logical size takes.
  static Size deviceSize(Size size, double ratio);
  RasterCanvas& device() { return device_; }

  Size size() const override { return size_; }
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
    const auto* const scaled = dynamic_cast<const ScaledCanvas*>(&surface);
    return scaled && scaled->ratio_ == ratio_;
  }
  void blitSurface(const Rect& area, const Canvas& source, std::int32_t sourceX,
                   std::int32_t sourceY) override;

 private:
  std::int32_t toDevice(std::int64_t place) const;
  Rect toDevice(const Rect& area) const;
  std::int32_t toLogical(std::int32_t length) const;
  // Device pixels of a line that is one logical pixel wide.
  std::int32_t hairline() const;
  LogFont toDevice(const LogFont& font) const;
  void straightLine(Point from, Point to, ColorRef color, std::int32_t width);

  double ratio_;
  Size size_;
  RasterCanvas device_;
};

}  // namespace tessera
