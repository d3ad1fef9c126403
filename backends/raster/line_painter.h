// Straight lines of any width.

#pragma once

#include <cstdint>
#include <span>

#include "backends/raster/pixels.h"
#include "shared/rect.h"

namespace tessera {

// Draws from point to point, both ends of every line included, with a square pen of `width` pixels (1 for
// anything below) whose centre, or the pixel right below it, follows the line. Fewer than two points draw
// nothing. The time does not depend on what lies outside the surface.
void drawPolyline(const Pixels& target, std::span<const Point> points, ColorRef color, std::int32_t width);

}  // namespace tessera
