#include "backends/raster/glyph_cache.h"

#include "backends/raster/font_face.h"

namespace tessera {

void GlyphCache::load(Glyph& glyph) {
  const GlyphImage image = glyph.face ? glyph.face->render(glyph.index) : GlyphImage{};
  const auto stride =
      static_cast<std::size_t>(CoverageMask::strideOf(static_cast<std::int32_t>(image.width)));
  const std::size_t size = stride * image.height;
  if (!bytes_.empty() && bytes_.size() + size > pixelLimit) {
    bytes_.clear();
    ++generation_;
  }
  glyph.generation = generation_;
  glyph.pixelStart = static_cast<std::uint32_t>(bytes_.size());
  glyph.left = image.left;
  glyph.top = image.top;
  glyph.width = image.width;
  glyph.height = image.height;
  for (std::uint32_t row = 0; row < image.height; ++row) {
    const std::uint8_t* const from = image.rows + static_cast<std::ptrdiff_t>(row) * image.stride;
    bytes_.insert(bytes_.end(), from, from + image.width);
    bytes_.insert(bytes_.end(), stride - image.width, 0);
  }
}

}  // namespace tessera
