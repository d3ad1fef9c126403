#include "backends/raster/font_face.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include FT_SYNTHESIS_H

#include <algorithm>
#include <hb-ft.h>
#include <hb.h>
#include <limits>

namespace tessera {
namespace {

constexpr FT_Int32 loadFlags = FT_LOAD_TARGET_LIGHT | FT_LOAD_NO_BITMAP;

// Font units of 1/64 pixel to whole pixels, halves upwards.
std::int32_t roundedPixels(FT_Pos units) { return static_cast<std::int32_t>((units + 32) >> 6); }

// How much a stroke grows when bold is drawn from a regular face, in 1/64 pixel.
FT_Pos emboldenStrength(FT_Face face) { return FT_Pos{face->size->metrics.y_ppem} * 64 / 24; }

bool setSize(FT_Face face, std::int32_t size) {
  FT_Size_RequestRec request{};
  request.type = size < 0 ? FT_SIZE_REQUEST_TYPE_REAL_DIM : FT_SIZE_REQUEST_TYPE_NOMINAL;
  const std::int64_t pixels = size < 0 ? -static_cast<std::int64_t>(size) : size;
  request.height = static_cast<FT_Long>(std::clamp<std::int64_t>(pixels, 1, FontFace::maxEm)) * 64;
  return FT_Request_Size(face, &request) == 0;
}

hb_position_t advanceForShaping(hb_font_t*, void* face, hb_codepoint_t index, void*) {
  return static_cast<FontFace*>(face)->glyph(index).advance * 64;
}

hb_font_funcs_t* roundedAdvances() {
  static hb_font_funcs_t* const functions = [] {
    hb_font_funcs_t* made = hb_font_funcs_create();
    hb_font_funcs_set_glyph_h_advance_func(made, advanceForShaping, nullptr, nullptr);
    hb_font_funcs_make_immutable(made);
    return made;
  }();
  return functions;
}

}  // namespace

std::unique_ptr<FontFace> FontFace::open(FT_Library library, const FontFile& file, std::int32_t size,
                                         GlyphCache& cache) {
  FT_Face face = nullptr;
  if (FT_New_Face(library, file.path.c_str(), file.index, &face) != 0) return nullptr;
  if (!FT_IS_SCALABLE(face) || !setSize(face, size)) {
    FT_Done_Face(face);
    return nullptr;
  }
  return std::unique_ptr<FontFace>(new FontFace(face, file, cache));
}

FontFace::FontFace(FT_Face face, const FontFile& file, GlyphCache& cache)
    : face_(face), cache_(cache), embolden_(file.embolden), slant_(file.slant) {}

FontFace::~FontFace() {
  if (shapingFont_) hb_font_destroy(shapingFont_);
  FT_Done_Face(face_);
}

std::int32_t FontFace::em() const { return face_->size->metrics.y_ppem; }

std::int32_t FontFace::ascent() const { return roundedPixels(face_->size->metrics.ascender); }

std::int32_t FontFace::descent() const { return roundedPixels(-face_->size->metrics.descender); }

std::int32_t FontFace::underlineHeight() const {
  return std::max(1, roundedPixels(FT_MulFix(face_->underline_thickness, face_->size->metrics.y_scale)));
}

std::int32_t FontFace::underlineTop() const {
  const FT_Pos middle = -FT_MulFix(face_->underline_position, face_->size->metrics.y_scale);
  const std::int32_t top = roundedPixels(middle - FT_Pos{underlineHeight()} * 32);
  return std::max(1, std::min(top, descent() - underlineHeight()));
}

std::uint32_t FontFace::glyphIndex(char32_t codePoint) const { return FT_Get_Char_Index(face_, codePoint); }

std::int32_t FontFace::advanceOf(std::uint32_t index) const {
  if (FT_Load_Glyph(face_, index, loadFlags) != 0) return 0;
  FT_Pos advance = face_->glyph->linearHoriAdvance >> 10;
  if (embolden_ && advance > 0) advance += emboldenStrength(face_);
  return std::clamp<std::int32_t>(roundedPixels(advance), 0, std::numeric_limits<std::int16_t>::max());
}

Glyph& FontFace::glyph(std::uint32_t index) {
  const auto [place, added] = glyphs_.try_emplace(index);
  Glyph& glyph = place->second;
  if (added) {
    glyph.face = this;
    glyph.index = index;
    glyph.advance = advanceOf(index);
    cache_.addEntries(1);
  }
  return glyph;
}

bool FontFace::loadStyled(std::uint32_t index) {
  if (FT_Load_Glyph(face_, index, loadFlags) != 0) return false;
  FT_GlyphSlot slot = face_->glyph;
  if (slot->format != FT_GLYPH_FORMAT_OUTLINE) return false;
  if (embolden_) FT_Outline_EmboldenXY(&slot->outline, emboldenStrength(face_), 0);
  if (slant_) FT_GlyphSlot_Oblique(slot);
  return FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) == 0;
}

GlyphImage FontFace::render(std::uint32_t index) {
  if (!loadStyled(index)) return {};
  const FT_GlyphSlot slot = face_->glyph;
  constexpr int most = std::numeric_limits<std::int16_t>::max();
  if (slot->bitmap.width > most || slot->bitmap.rows > most || std::abs(slot->bitmap_left) > most ||
      std::abs(slot->bitmap_top) > most) {
    return {};
  }
  return {slot->bitmap.buffer,
          slot->bitmap.pitch,
          static_cast<std::int16_t>(slot->bitmap_left),
          static_cast<std::int16_t>(slot->bitmap_top),
          static_cast<std::uint16_t>(slot->bitmap.width),
          static_cast<std::uint16_t>(slot->bitmap.rows)};
}

hb_font_t* FontFace::shapingFont() {
  if (!shapingFont_) {
    hb_font_t* const plain = hb_ft_font_create_referenced(face_);
    hb_ft_font_set_load_flags(plain, loadFlags);
    shapingFont_ = hb_font_create_sub_font(plain);
    hb_font_set_funcs(shapingFont_, roundedAdvances(), this, nullptr);
    hb_font_destroy(plain);
  }
  return shapingFont_;
}

}  // namespace tessera
