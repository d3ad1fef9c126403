#include "backends/raster/coverage_mask.h"

#include <algorithm>
#include <cstring>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "backends/raster/pixel_lanes.h"
#include "shared/bitmap.h"

namespace tessera {
namespace {

// In all of this a coverage of 255 weighs 256, so that it replaces the pixel, and a pixel becomes
// (under * (256 - weight) + over * weight) / 256. Every lane of the sum fits, whatever its parts borrow. No
// branch for the frequent 0 and 255: guessing wrong costs more than the multiplication.

void blendPixelwise(std::uint32_t* to, const std::uint8_t* coverage, std::int64_t count,
                    std::uint32_t pixel) {
  const std::uint64_t over = spread(pixel);
  for (std::int64_t i = 0; i < count; ++i) {
    const std::uint64_t weight = coverage[i] + (coverage[i] >> 7);
    const std::uint64_t under = spread(to[i]);
    to[i] = gather(((under << 8) + (over - under) * weight) >> 8 & lowBytes);
  }
}

#if defined(__SSE2__)

// Two pixels, a 16-bit lane a channel; `coverage` stands in each of a pixel's lanes.
__m128i blendPair(__m128i under, __m128i over, __m128i coverage) {
  const __m128i weight = _mm_add_epi16(coverage, _mm_srli_epi16(coverage, 7));
  const __m128i change = _mm_mullo_epi16(_mm_sub_epi16(over, under), weight);
  return _mm_srli_epi16(_mm_add_epi16(_mm_slli_epi16(under, 8), change), 8);
}

void blendGroups(std::uint32_t* to, const std::uint8_t* coverage, std::int64_t count, std::uint32_t pixel) {
  const __m128i zero = _mm_setzero_si128();
  const __m128i over = _mm_unpacklo_epi8(_mm_set1_epi32(static_cast<std::int32_t>(pixel)), zero);
  for (std::int64_t i = 0; i < count; i += CoverageMask::group) {
    std::int32_t four;
    std::memcpy(&four, coverage + i, sizeof four);
    __m128i weights = _mm_cvtsi32_si128(four);
    weights = _mm_unpacklo_epi8(weights, weights);
    weights = _mm_unpacklo_epi16(weights, weights);
    __m128i* const place = reinterpret_cast<__m128i*>(to + i);
    const __m128i under = _mm_loadu_si128(place);
    const __m128i low = blendPair(_mm_unpacklo_epi8(under, zero), over, _mm_unpacklo_epi8(weights, zero));
    const __m128i high = blendPair(_mm_unpackhi_epi8(under, zero), over, _mm_unpackhi_epi8(weights, zero));
    _mm_storeu_si128(place, _mm_packus_epi16(low, high));
  }
}

#else

void blendGroups(std::uint32_t* to, const std::uint8_t* coverage, std::int64_t count, std::uint32_t pixel) {
  blendPixelwise(to, coverage, count, pixel);
}

#endif

}  // namespace

void blendMask(const Pixels& target, const Rect& clip, std::int64_t x, std::int64_t y,
               const CoverageMask& mask, ColorRef color) {
  const std::int64_t left = std::max<std::int64_t>(x, clip.left);
  const std::int64_t right = std::min<std::int64_t>(x + mask.width, clip.right);
  const std::int64_t top = std::max<std::int64_t>(y, clip.top);
  const std::int64_t bottom = std::min<std::int64_t>(y + mask.height, clip.bottom);
  if (left >= right) return;
  // Groups reach beyond the mask, where they leave pixels as they are, but must not reach beyond the surface.
  const bool whole = right - left == mask.width && x + mask.stride <= target.width;
  const auto blendRow = whole ? blendGroups : blendPixelwise;
  const std::int64_t count = whole ? mask.stride : right - left;
  const std::uint32_t pixel = pixelOf(color);
  for (std::int64_t row = top; row < bottom; ++row) {
    blendRow(target.at(left, row), mask.bytes + (row - y) * mask.stride + (left - x), count, pixel);
  }
}

}  // namespace tessera
