// A face of a font file at one size.

#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>

#include "backends/raster/font_finder.h"
#include "backends/raster/glyph_cache.h"

struct FT_FaceRec_;
struct FT_LibraryRec_;
struct hb_font_t;

namespace tessera {

// Coverage bytes inside the font library, valid until its next call.
struct GlyphImage {
  const std::uint8_t* rows = nullptr;
  std::int32_t stride = 0;
  std::int16_t left = 0;
  std::int16_t top = 0;
  std::uint16_t width = 0;
  std::uint16_t height = 0;
};

// Outlines are hinted vertically only and drawn with 256 grey levels; advances are the unhinted ones rounded
// to whole pixels. So pictures and measures depend on the font file and the library, not on the machine.
class FontFace {
 public:
  // Pixels of the em square. Larger sizes are drawn at the largest.
  static constexpr std::int32_t maxEm = 1024;

  // Null when the file is no scalable font. `size` is the em in pixels, or the line height if negative.
  static std::unique_ptr<FontFace> open(FT_LibraryRec_* library, const FontFile& file, std::int32_t size,
                                        GlyphCache& cache);
  ~FontFace();
  FontFace(const FontFace&) = delete;
  FontFace& operator=(const FontFace&) = delete;

  std::int32_t em() const;
  std::int32_t ascent() const;
  std::int32_t descent() const;  // positive
  // The underline's upper side below the baseline, and its height; inside the descent where it fits.
  std::int32_t underlineTop() const;
  std::int32_t underlineHeight() const;

  // 0 when the face lacks the character.
  std::uint32_t glyphIndex(char32_t codePoint) const;
  // Stays valid as long as the face.
  Glyph& glyph(std::uint32_t index);
  GlyphImage render(std::uint32_t index);
  // For shaping; made at the first use. Its advances are those of glyph().
  hb_font_t* shapingFont();

 private:
  FontFace(FT_FaceRec_* face, const FontFile& file, GlyphCache& cache);

  std::int32_t advanceOf(std::uint32_t index) const;
  bool loadStyled(std::uint32_t index);

  FT_FaceRec_* face_;
  hb_font_t* shapingFont_ = nullptr;
  GlyphCache& cache_;
  std::unordered_map<std::uint32_t, Glyph> glyphs_;
  bool embolden_;
  bool slant_;
};

}  // namespace tessera
