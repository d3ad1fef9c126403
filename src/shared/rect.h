// Points, sizes and rectangles in device pixels.

#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace tessera {

struct Point {
  std::int32_t x = 0;
  std::int32_t y = 0;
  bool operator==(const Point&) const = default;
};

struct Size {
  std::int32_t width = 0;
  std::int32_t height = 0;
  bool operator==(const Size&) const = default;
};

// Left and top edges belong to the rectangle, right and bottom edges do not.
struct Rect {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;

  std::int32_t width() const;
  std::int32_t height() const;
  bool empty() const { return right <= left || bottom <= top; }
  bool holds(std::int32_t x, std::int32_t y) const {
    return x >= left && x < right && y >= top && y < bottom;
  }
  bool operator==(const Rect&) const = default;
};

// Sums that stop at the 32-bit limits: configured coordinates may be anything.
constexpr std::int32_t clampToInt(std::int64_t value) {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, std::numeric_limits<std::int32_t>::min(),
                                                            std::numeric_limits<std::int32_t>::max()));
}
constexpr std::int32_t addClamped(std::int32_t a, std::int32_t b) {
  return clampToInt(static_cast<std::int64_t>(a) + b);
}
constexpr std::int32_t subClamped(std::int32_t a, std::int32_t b) {
  return clampToInt(static_cast<std::int64_t>(a) - b);
}
constexpr std::int32_t mulClamped(std::int32_t a, std::int32_t b) {
  return clampToInt(static_cast<std::int64_t>(a) * b);
}

inline std::int32_t Rect::width() const { return subClamped(right, left); }
inline std::int32_t Rect::height() const { return subClamped(bottom, top); }

inline Rect intersect(const Rect& a, const Rect& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
          std::min(a.bottom, b.bottom)};
}

// value * numerator / denominator with a 64-bit product, rounded to the nearest, halves away from zero;
// -1 for a zero denominator or a result past 32 bits.
std::int32_t mulDiv(std::int32_t value, std::int32_t numerator, std::int32_t denominator);

}  // namespace tessera
