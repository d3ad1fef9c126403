#include "backends/qt/scaled_canvas.h"

#include <array>
#include <cassert>
#include <cmath>

#include "backends/qt/font_height.h"

namespace tessera {

namespace {

std::int32_t scaled(std::int64_t value, double ratio) {
  return clampToInt(std::llround(static_cast<double>(value) * ratio));
}

}  // namespace

ScaledCanvas::ScaledCanvas(Size size, double ratio)
    : ratio_(ratio), size_(size), device_(deviceSize(size, ratio)) {}

Size ScaledCanvas::deviceSize(Size size, double ratio) {
  return {scaled(size.width, ratio), scaled(size.height, ratio)};
}

std::int32_t ScaledCanvas::toDevice(std::int64_t place) const { return scaled(place, ratio_); }

Rect ScaledCanvas::toDevice(const Rect& area) const {
  return {toDevice(area.left), toDevice(area.top), toDevice(area.right), toDevice(area.bottom)};
}

std::int32_t ScaledCanvas::toLogical(std::int32_t length) const {
  return clampToInt(std::llround(std::ceil(static_cast<double>(length) / ratio_)));
}

std::int32_t ScaledCanvas::hairline() const { return std::max(1, toDevice(1)); }

LogFont ScaledCanvas::toDevice(const LogFont& font) const {
  LogFont made = font;
  made.lfHeight = toDevice(heightOf(font));
  return made;
}

void ScaledCanvas::fill(const Rect& area, ColorRef color) { device_.fill(toDevice(area), color); }

void ScaledCanvas::blend(const Rect& area, ColorRef color, std::uint8_t alpha) {
  device_.blend(toDevice(area), color, alpha);
}

// Only what the source covers is drawn, however large the area is.
void ScaledCanvas::blit(const Rect& area, const Bitmap& source, std::int32_t sourceX, std::int32_t sourceY) {
  const Rect wanted{sourceX, sourceY, addClamped(sourceX, area.width()), addClamped(sourceY, area.height())};
  const Rect covered = intersect(wanted, {0, 0, source.width, source.height});
  if (covered.empty()) return;
  const std::int32_t left = addClamped(area.left, subClamped(covered.left, sourceX));
  const std::int32_t top = addClamped(area.top, subClamped(covered.top, sourceY));
  blitKeyed({left, top, addClamped(left, covered.width()), addClamped(top, covered.height())}, source,
            covered, noColor);
}

void ScaledCanvas::stretch(const Rect& area, const Bitmap& source) {
  device_.stretch(toDevice(area), source);
}

void ScaledCanvas::blitKeyed(const Rect& area, const Bitmap& source, const Rect& sourceArea, ColorRef key) {
  device_.blitKeyed(toDevice(area), source, sourceArea, key);
}

// A wider line is centred on its pixels; of an even width the larger half lies before them.
void ScaledCanvas::straightLine(Point from, Point to, ColorRef color, std::int32_t width) {
  const std::int32_t before = width / 2, after = width - before;
  device_.fill(
      toDevice(Rect{subClamped(std::min(from.x, to.x), before), subClamped(std::min(from.y, to.y), before),
                    addClamped(std::max(from.x, to.x), after), addClamped(std::max(from.y, to.y), after)}),
      color);
}

void ScaledCanvas::polyline(std::span<const Point> points, ColorRef color, std::int32_t width) {
  const std::int32_t counted = std::max(1, width);
  const std::int32_t middle = hairline() / 2;
  const auto place = [&](Point point) {
    return Point{addClamped(toDevice(point.x), middle), addClamped(toDevice(point.y), middle)};
  };
  for (std::size_t i = 1; i < points.size(); ++i) {
    const Point from = points[i - 1], to = points[i];
    if (from.x == to.x || from.y == to.y) {
      straightLine(from, to, color, counted);
    } else {
      device_.polyline(std::array{place(from), place(to)}, color, std::max(1, toDevice(counted)));
    }
  }
}

void ScaledCanvas::edge(const Rect& area, Edge edge) {
  Rect ring = toDevice(area);
  for (std::int32_t i = 0; i < hairline() && !ring.empty(); ++i) {
    device_.edge(ring, edge);
    ring = {ring.left + 1, ring.top + 1, ring.right - 1, ring.bottom - 1};
  }
}

void ScaledCanvas::focusRect(const Rect& area) {
  Rect ring = toDevice(area);
  for (std::int32_t i = 0; i < hairline() && !ring.empty(); ++i) {
    device_.focusRect(ring);
    ring = {ring.left + 1, ring.top + 1, ring.right - 1, ring.bottom - 1};
  }
}

Size ScaledCanvas::textExtent(const LogFont& font, std::u16string_view text) {
  const Size extent = device_.textExtent(toDevice(font), text);
  return {toLogical(extent.width), toLogical(extent.height)};
}

void ScaledCanvas::text(const Rect& clip, std::int32_t x, std::int32_t y, const LogFont& font, ColorRef color,
                        std::u16string_view text) {
  device_.text(toDevice(clip), toDevice(x), toDevice(y), toDevice(font), color, text);
}

std::unique_ptr<Canvas> ScaledCanvas::createSurface(Size size) {
  return std::make_unique<ScaledCanvas>(size, ratio_);
}

void ScaledCanvas::blitSurface(const Rect& area, const Canvas& source, std::int32_t sourceX,
                               std::int32_t sourceY) {
  const auto* const surface = dynamic_cast<const ScaledCanvas*>(&source);
  assert(surface && "a surface of another kind of canvas");
  if (!surface) return;
  device_.blitSurface(toDevice(area), surface->device_, toDevice(sourceX), toDevice(sourceY));
}

}  // namespace tessera
