// Cuts a line of text into stretches that are measured and drawn on their own, from left to right.

#pragma once

#include <cstdint>
#include <string_view>

#include "backends/raster/font.h"

namespace tessera {

struct TextSegment {
  std::u16string_view text;
  bool shaped = false;
  std::int64_t width = 0;  // of a segment that is not shaped
};

// Shaped segments start with the word that needs shaping, or with a bracket shortly before it, and go on to
// the end of the text, because what follows may have to be reordered with it. They are at most `maxShaped`
// units long, cut behind a space where there is one; longer right-to-left text runs from right to left within
// each such piece only. So no text costs more than its visible part and one piece, and the width of a text is
// the sum of its segments' widths.
class TextSegments {
 public:
  static constexpr std::size_t maxShaped = 1024;

  TextSegments(Font& font, std::u16string_view text) : font_(font), text_(text) {}

  // False at the end of the text. A segment that is not shaped stops at the first character past `room`.
  bool next(std::int64_t room, TextSegment& segment);

 private:
  // A place where a segment may end, and the width up to there.
  struct Cut {
    std::size_t place = 0;
    std::int64_t width = 0;
  };

  TextSegment cut(std::size_t end, bool shaped, std::int64_t width);
  std::size_t shapedEnd() const;
  Cut pairStart(Cut word) const;

  Font& font_;
  std::u16string_view text_;
  std::size_t place_ = 0;
};

}  // namespace tessera
