#include "backends/raster/font.h"

#include <utility>

#include "backends/raster/script_class.h"

namespace tessera {
namespace {

constexpr std::size_t pageCount = 0x110000 / 256;
constexpr char32_t replacement = 0xFFFD;

}  // namespace

Font::Font(FT_LibraryRec_* library, std::shared_ptr<const FontList> files, std::int32_t size,
           GlyphCache& cache)
    : library_(library),
      files_(std::move(files)),
      cache_(cache),
      size_(size),
      faces_(files_->size()),
      pages_(pageCount) {
  shaped_.needsShaping = true;
  for (std::size_t i = 0; i < faces_.size() && !primary_; ++i) primary_ = faceAt(i);
  if (!primary_) return;
  em_ = primary_->em();
  ascent_ = primary_->ascent();
  height_ = ascent_ + primary_->descent();
  underlineTop_ = primary_->underlineTop();
  underlineHeight_ = primary_->underlineHeight();
}

FontFace* Font::faceAt(std::size_t place) {
  Slot& slot = faces_[place];
  if (!std::exchange(slot.tried, true)) {
    // The primary face decides the size of all: a line height would give each its own em.
    slot.face = FontFace::open(library_, files_->file(place), primary_ ? em_ : size_, cache_);
  }
  return slot.face.get();
}

FontFace* Font::faceFor(char32_t codePoint) {
  if (!primary_ || primary_->glyphIndex(codePoint) != 0) return primary_;
  for (std::size_t i = 0; i < faces_.size(); ++i) {
    if (!files_->covers(i, codePoint)) continue;
    FontFace* face = faceAt(i);
    if (face && face->glyphIndex(codePoint) != 0) return face;
  }
  return primary_;
}

bool Font::covers(char32_t codePoint) {
  FontFace* face = faceFor(codePoint);
  return face && face->glyphIndex(codePoint) != 0;
}

Glyph& Font::find(char32_t codePoint) {
  switch (scriptClass(codePoint)) {
    case ScriptClass::Control:
      return blank_;
    case ScriptClass::Shaped:
      return shaped_;
    case ScriptClass::Simple:
      break;
  }
  const char32_t shown = isShownAsSpace(codePoint) ? U' ' : isSurrogate(codePoint) ? replacement : codePoint;
  FontFace* face = faceFor(shown);
  return face ? face->glyph(face->glyphIndex(shown)) : blank_;
}

Glyph& Font::resolve(char32_t codePoint) {
  std::unique_ptr<Page>& page = pages_[codePoint >> 8];
  if (!page) {
    page = std::make_unique<Page>();
    cache_.addEntries(pageEntries);
  }
  Glyph& found = find(codePoint);
  (*page)[codePoint & 255] = &found;
  return found;
}

}  // namespace tessera
