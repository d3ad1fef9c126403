// Turns text of scripts that need it into placed glyphs, by HarfBuzz, and keeps the results of late.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "backends/raster/font.h"

namespace tessera {

// `x` from the start of the text and `y` downwards from the baseline, in pixels.
struct PlacedGlyph {
  Glyph* glyph = nullptr;
  std::int32_t x = 0;
  std::int32_t y = 0;
};

struct ShapedText {
  std::vector<PlacedGlyph> glyphs;  // from left to right
  std::int32_t width = 0;
};

// Kerning and optional ligatures are off, as everywhere in this back end, so that a letter is equally wide
// next to any other. Missing characters come from stand-in faces, run by run.
//
// Bound: two halves of at most `maxGlyphs` glyphs. When the young half is full it becomes the old one, whose
// texts move back as they are asked for; the rest goes.
class TextShaper {
 public:
  static constexpr std::size_t maxGlyphs = 1u << 17;

  // Valid until the next call. `text` is at most a few thousand units long.
  const ShapedText& shape(Font& font, std::u16string_view text);

  // Must be called before a font ends.
  void clear();

  std::uint64_t shapings() const { return shapings_; }
  std::size_t textsKept() const { return young_.size() + old_.size(); }

 private:
  struct Key {
    const Font* font;
    std::u16string text;
  };
  struct KeyView {
    const Font* font;
    std::u16string_view text;
  };
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(const KeyView& key) const;
    std::size_t operator()(const Key& key) const { return (*this)(KeyView{key.font, key.text}); }
  };
  struct Equal {
    using is_transparent = void;
    template <class A, class B>
    bool operator()(const A& a, const B& b) const {
      return a.font == b.font && std::u16string_view(a.text) == std::u16string_view(b.text);
    }
  };
  using Texts = std::unordered_map<Key, ShapedText, Hash, Equal>;

  static std::size_t weight(const Key& key, const ShapedText& text);
  void makeRoom(std::size_t weight);

  Texts young_;
  Texts old_;
  std::size_t youngGlyphs_ = 0;
  std::uint64_t shapings_ = 0;
};

}  // namespace tessera
