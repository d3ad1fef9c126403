#include "backends/raster/line_painter.h"

#include <algorithm>

namespace tessera {
namespace {

// A line seen along its longer axis: `major` runs from 0 to `length`, `minor` follows it. All values of two
// 32-bit points fit: lengths are below 2^32, their products below 2^64.
struct Slope {
  std::int64_t majorStart = 0;
  std::int64_t minorStart = 0;
  std::int64_t majorStep = 1;  // 1 or -1
  std::int64_t minorStep = 1;  // 1 or -1
  std::uint64_t length = 0;    // along the major axis
  std::uint64_t rise = 0;      // along the minor axis, at most length

  std::int64_t majorAt(std::uint64_t step) const {
    return majorStart + majorStep * static_cast<std::int64_t>(step);
  }
  // The nearest pixel of the line at `step`; halves go on along the line.
  std::int64_t minorAt(std::uint64_t step) const {
    if (length == 0) return minorStart;
    const std::uint64_t product = step * rise;
    std::uint64_t moved = product / length;
    if (2 * (product % length) >= length) ++moved;
    return minorStart + minorStep * static_cast<std::int64_t>(moved);
  }
};

struct Span {
  std::int64_t low = 0;
  std::int64_t high = 0;
};

Span sorted(std::int64_t a, std::int64_t b) { return {std::min(a, b), std::max(a, b)}; }

std::uint64_t distance(std::int64_t from, std::int64_t to) {
  return static_cast<std::uint64_t>(from < to ? to - from : from - to);
}

// The pixels that a pen of some width covers around its place: [place - before, place + after].
struct Pen {
  std::int64_t before = 0;
  std::int64_t after = 0;

  explicit Pen(std::int32_t width) {
    const std::int64_t pixels = std::max(width, 1);
    before = pixels / 2;
    after = pixels - 1 - before;
  }
};

Rect clampedRect(std::int64_t left, std::int64_t top, std::int64_t right, std::int64_t bottom) {
  return {clampToInt(left), clampToInt(top), clampToInt(right), clampToInt(bottom)};
}

// Horizontal and vertical lines, nearly all that a grid draws, are one rectangle.
void drawStraight(const Pixels& target, Point from, Point to, ColorRef color, const Pen& pen) {
  const Span across = sorted(from.x, to.x), down = sorted(from.y, to.y);
  fillPixels(target,
             clampedRect(across.low - pen.before, down.low - pen.before, across.high + pen.after + 1,
                         down.high + pen.after + 1),
             color);
}

// The steps at which the pen covers the major coordinate `place`.
struct StepRange {
  std::uint64_t first = 0;
  std::uint64_t last = 0;
};

StepRange stepsOver(const Slope& slope, std::int64_t place, const Pen& pen) {
  const auto clampStep = [&](std::int64_t step) {
    return static_cast<std::uint64_t>(
        std::clamp<std::int64_t>(step, 0, static_cast<std::int64_t>(slope.length)));
  };
  const std::int64_t low = slope.majorStep * (place - pen.after - slope.majorStart);
  const std::int64_t high = slope.majorStep * (place + pen.before - slope.majorStart);
  return {clampStep(std::min(low, high)), clampStep(std::max(low, high))};
}

// The swept pen covers one unbroken stretch of every column (row) that it passes, because the line only moves
// one way: so each column is filled once, whatever the pen's width.
void drawSloped(const Pixels& target, const Slope& slope, bool alongX, ColorRef color, const Pen& pen) {
  const std::int64_t extent = alongX ? target.width : target.height;
  const Span whole = sorted(slope.majorStart, slope.majorAt(slope.length));
  const std::int64_t first = std::max<std::int64_t>(whole.low - pen.before, 0);
  const std::int64_t last = std::min<std::int64_t>(whole.high + pen.after, extent - 1);
  for (std::int64_t place = first; place <= last; ++place) {
    const StepRange steps = stepsOver(slope, place, pen);
    const Span covered = sorted(slope.minorAt(steps.first), slope.minorAt(steps.last));
    const std::int64_t from = covered.low - pen.before, to = covered.high + pen.after + 1;
    fillPixels(target,
               alongX ? clampedRect(place, from, place + 1, to) : clampedRect(from, place, to, place + 1),
               color);
  }
}

Slope slopeOf(Point from, Point to, bool alongX) {
  Slope slope;
  slope.majorStart = alongX ? from.x : from.y;
  slope.minorStart = alongX ? from.y : from.x;
  const std::int64_t majorEnd = alongX ? to.x : to.y;
  const std::int64_t minorEnd = alongX ? to.y : to.x;
  slope.majorStep = majorEnd < slope.majorStart ? -1 : 1;
  slope.minorStep = minorEnd < slope.minorStart ? -1 : 1;
  slope.length = distance(slope.majorStart, majorEnd);
  slope.rise = distance(slope.minorStart, minorEnd);
  return slope;
}

}  // namespace

void drawPolyline(const Pixels& target, std::span<const Point> points, ColorRef color, std::int32_t width) {
  const Pen pen(width);
  for (std::size_t i = 1; i < points.size(); ++i) {
    const Point from = points[i - 1], to = points[i];
    if (from.x == to.x || from.y == to.y) {
      drawStraight(target, from, to, color, pen);
    } else {
      const bool alongX = distance(from.x, to.x) >= distance(from.y, to.y);
      drawSloped(target, slopeOf(from, to, alongX), alongX, color, pen);
    }
  }
}

}  // namespace tessera
