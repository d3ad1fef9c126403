#include "backends/raster/font_cache.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>
#include <new>
#include <string>

#include "shared/rect.h"
#include "shared/screen.h"

namespace tessera {
namespace {

constexpr std::int32_t defaultPoints = 9;
constexpr std::int32_t boldFrom = 600;

// Descriptions that look the same become the same record.
LogFont normalized(const LogFont& description) {
  LogFont key = description;
  key.lfUnderline = 0;
  key.lfItalic = description.lfItalic != 0;
  key.lfWeight = description.lfWeight >= boldFrom ? 700 : 0;
  const std::int32_t height =
      description.lfHeight == 0 ? pointsToHeight(defaultPoints) : description.lfHeight;
  key.lfHeight = std::clamp(height, -FontFace::maxEm, FontFace::maxEm);
  return key;
}

}  // namespace

FontCache& FontCache::ofThread() {
  thread_local FontCache cache;
  return cache;
}

FontCache::FontCache() {
  if (FT_Init_FreeType(&library_) != 0) throw std::bad_alloc();
}

FontCache::~FontCache() {
  dropAll();
  FT_Done_FreeType(library_);
}

Font& FontCache::font(const LogFont& description) {
  if (lastFont_ && glyphs_.entries() <= maxEntries && description == lastDescription_) return *lastFont_;
  lastFont_ = &findOrOpen(normalized(description));
  lastDescription_ = description;
  return *lastFont_;
}

Font& FontCache::findOrOpen(const LogFont& key) {
  if (glyphs_.entries() > maxEntries) dropAll();
  const auto found = fonts_.find(key);
  if (found == fonts_.end() && fonts_.size() >= maxFonts) dropOldest();
  Entry& entry = found != fonts_.end() ? found->second : fonts_[key];
  if (!entry.font) entry.font = open(key);
  entry.lastUse = ++uses_;
  return *entry.font;
}

std::unique_ptr<Font> FontCache::open(const LogFont& key) {
  return std::make_unique<Font>(library_, filesOf(key), -key.lfHeight, glyphs_);
}

std::shared_ptr<const FontList> FontCache::filesOf(const LogFont& key) {
  LogFont style = key;
  style.lfHeight = 0;
  if (files_.size() >= maxFonts) files_.clear();
  std::shared_ptr<const FontList>& files = files_[style];
  if (!files) {
    files = std::make_shared<FontList>(std::string(key.face()), key.lfWeight != 0, key.lfItalic != 0);
  }
  return files;
}

void FontCache::dropOldest() {
  const auto oldest = std::min_element(fonts_.begin(), fonts_.end(), [](const auto& a, const auto& b) {
    return a.second.lastUse < b.second.lastUse;
  });
  shaper_.clear();
  widths_.clear();
  lastFont_ = nullptr;
  fonts_.erase(oldest);
}

void FontCache::dropAll() {
  shaper_.clear();
  widths_.clear();
  lastFont_ = nullptr;
  fonts_.clear();
  glyphs_.forgetEntries();
}

}  // namespace tessera
