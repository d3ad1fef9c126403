// The software canvas: pixels in memory.

#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "backends/raster/pixels.h"
#include "platform/canvas.h"
#include "shared/bitmap.h"

union pixman_image;

namespace tessera {

// A canvas of opaque 32-bit pixels; a new one is black. A canvas is used by one thread at a time; texts go
// through the FontCache of the thread that draws, so different threads may use different canvases. When the
// caches are warm no operation but createSurface() and snapshot() allocates.
class RasterCanvas : public Canvas {
 public:
  // Pixels on a side. Sizes outside of 0..maxSide are brought into it.
  static constexpr std::int32_t maxSide = 1 << 16;

  // Throws std::bad_alloc when there is no room for the pixels.
  explicit RasterCanvas(Size size);
  ~RasterCanvas() override;
  RasterCanvas(const RasterCanvas&) = delete;
  RasterCanvas& operator=(const RasterCanvas&) = delete;

  Size size() const override { return {pixels_.width, pixels_.height}; }
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
    return dynamic_cast<const RasterCanvas*>(&surface) != nullptr;
  }
  // `source` may be this canvas itself, also with overlapping areas.
  void blitSurface(const Rect& area, const Canvas& source, std::int32_t sourceX,
                   std::int32_t sourceY) override;

  // The pixel at a place inside the surface, 0xFFRRGGBB.
  std::uint32_t pixel(std::int32_t x, std::int32_t y) const { return *pixels_.at(x, y) | opaque; }
  // The pixels themselves, for a host that shows them; valid as long as the canvas.
  const Pixels& pixels() const { return pixels_; }
  Bitmap snapshot() const;

 private:
  struct Release {
    void operator()(pixman_image* image) const;
  };

  std::unique_ptr<pixman_image, Release> image_;  // null for an empty surface
  Pixels pixels_;                                 // of image_
};

}  // namespace tessera
