// Glyphs and the bounded store of their pixels.

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "backends/raster/coverage_mask.h"

namespace tessera {

class FontFace;

// One glyph of one face at one size. The advance is known from the start; the box and the pixels are only
// there after GlyphCache::mask().
struct Glyph {
  FontFace* face = nullptr;      // null: draws nothing
  std::uint32_t index = 0;       // in the face
  std::int32_t advance = 0;      // whole pixels
  std::uint32_t pixelStart = 0;  // in the store
  std::uint32_t generation = 0;  // of the store that pixelStart belongs to
  std::int16_t left = 0;         // of the box, from the pen
  std::int16_t top = 0;          // of the box, from the baseline, upwards
  std::uint16_t width = 0;       // of the box
  std::uint16_t height = 0;      // of the box
  bool needsShaping = false;     // no glyph: its character goes through the shaper
};

// Coverage masks of the glyphs drawn lately, one after the other in one block. When the block is full all
// are forgotten at once and drawn again as they are needed, which costs less than keeping an order of use.
class GlyphCache {
 public:
  // A single larger mask is still kept until the next one comes.
  static constexpr std::size_t pixelLimit = 16u << 20;

  // Valid until the next call.
  CoverageMask mask(Glyph& glyph) {
    if (glyph.generation != generation_) load(glyph);
    return {bytes_.data() + glyph.pixelStart, glyph.width, glyph.height, CoverageMask::strideOf(glyph.width)};
  }

  // Counts entries of tables that belong to this cache's fonts, so that their owner can keep a bound.
  void addEntries(std::size_t count) { entries_ += count; }
  std::size_t entries() const { return entries_; }
  void forgetEntries() { entries_ = 0; }

  std::size_t pixelBytes() const { return bytes_.size(); }

 private:
  void load(Glyph& glyph);

  std::vector<std::uint8_t> bytes_;
  std::size_t entries_ = 0;
  std::uint32_t generation_ = 1;
};

}  // namespace tessera
