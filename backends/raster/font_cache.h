// The fonts, glyphs and shaped texts that all canvases of a thread share.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>

#include "backends/raster/font.h"
#include "backends/raster/glyph_cache.h"
#include "backends/raster/text_shaper.h"
#include "backends/raster/width_cache.h"
#include "shared/log_font.h"

namespace tessera {

// Every thread has its own cache with its own instance of the font library, made at the first use and freed
// with the thread; so nothing is locked, and any thread may measure and draw, each on its own canvases. What
// is handed out must not be kept from one call of the canvas to the next.
//
// Bounds, per thread: `maxFonts` fonts; `maxEntries` glyph records (about 64 bytes each, a page of 256
// characters counts as 32) and what one more text can add; GlyphCache::pixelLimit bytes of glyph pixels; two
// times TextShaper::maxGlyphs shaped glyphs; WidthCache::maxTexts widths of long texts.
class FontCache {
 public:
  static constexpr std::size_t maxFonts = 64;
  static constexpr std::size_t maxEntries = 1u << 18;

  static FontCache& ofThread();

  FontCache();
  ~FontCache();
  FontCache(const FontCache&) = delete;
  FontCache& operator=(const FontCache&) = delete;

  // Never fails; valid until the next call. Underlining makes no other font.
  Font& font(const LogFont& description);
  GlyphCache& glyphs() { return glyphs_; }
  TextShaper& shaper() { return shaper_; }
  WidthCache& widths() { return widths_; }

 private:
  struct Entry {
    std::unique_ptr<Font> font;
    std::uint64_t lastUse = 0;
  };

  Font& findOrOpen(const LogFont& key);
  std::unique_ptr<Font> open(const LogFont& key);
  std::shared_ptr<const FontList> filesOf(const LogFont& key);
  void dropOldest();
  void dropAll();

  FT_LibraryRec_* library_ = nullptr;
  GlyphCache glyphs_;
  TextShaper shaper_;
  WidthCache widths_;
  std::unordered_map<LogFont, std::shared_ptr<const FontList>> files_;  // height 0: for all heights
  std::unordered_map<LogFont, Entry> fonts_;
  LogFont lastDescription_;
  Font* lastFont_ = nullptr;
  std::uint64_t uses_ = 0;
};

}  // namespace tessera
