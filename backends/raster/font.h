// A font of a description: its primary face, the faces that stand in for missing characters, and the table
// from characters to glyphs.

#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "backends/raster/font_face.h"

namespace tessera {

class Font {
 public:
  // `size` as in FontFace::open(). Without any usable font file the font measures, but draws nothing.
  Font(FT_LibraryRec_* library, std::shared_ptr<const FontList> files, std::int32_t size, GlyphCache& cache);

  std::int32_t em() const { return em_; }
  std::int32_t ascent() const { return ascent_; }
  std::int32_t height() const { return height_; }
  std::int32_t underlineTop() const { return underlineTop_; }
  std::int32_t underlineHeight() const { return underlineHeight_; }

  // The glyph of a character that stands for itself whatever its neighbours are; one with needsShaping for
  // the others. `codePoint` is at most 0x10FFFF. Stays valid as long as the font.
  Glyph& glyph(char32_t codePoint) {
    if (const Page* page = pages_[codePoint >> 8].get()) {
      if (Glyph* found = (*page)[codePoint & 255]) return *found;
    }
    return resolve(codePoint);
  }

  // The first face that has the character, the primary one if none has. Null without any face.
  FontFace* faceFor(char32_t codePoint);
  // Whether the font can show it in other than the sign for missing characters.
  bool covers(char32_t codePoint);

 private:
  using Page = std::array<Glyph*, 256>;
  // A page weighs as much as about this many glyphs.
  static constexpr std::size_t pageEntries = 32;

  Glyph& resolve(char32_t codePoint);
  Glyph& find(char32_t codePoint);
  FontFace* faceAt(std::size_t place);

  struct Slot {
    std::unique_ptr<FontFace> face;
    bool tried = false;
  };

  FT_LibraryRec_* library_;
  std::shared_ptr<const FontList> files_;
  GlyphCache& cache_;
  std::int32_t size_;
  std::vector<Slot> faces_;  // as files_
  FontFace* primary_ = nullptr;
  std::vector<std::unique_ptr<Page>> pages_;
  Glyph blank_;
  Glyph shaped_;
  std::int32_t em_ = 1;
  std::int32_t ascent_ = 1;
  std::int32_t height_ = 1;
  std::int32_t underlineTop_ = 1;
  std::int32_t underlineHeight_ = 1;
};

}  // namespace tessera
