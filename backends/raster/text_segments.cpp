#include "backends/raster/text_segments.h"

#include <algorithm>

#include "backends/raster/bidi_levels.h"
#include "backends/raster/script_class.h"

namespace tessera {
namespace {

// A longer word is not drawn from its start by the shaper, but from the character before.
constexpr std::size_t maxWord = 256;

}  // namespace

// The first bracket shortly before, if there is one. It decides the direction of its partner by what stands
// between.
TextSegments::Cut TextSegments::pairStart(Cut word) const {
  const auto end = text_.begin() + static_cast<std::ptrdiff_t>(word.place);
  const auto from = end - static_cast<std::ptrdiff_t>(std::min(word.place - place_, maxWord));
  const auto bracket = std::find_if(from, end, opensPair);
  for (auto place = static_cast<std::size_t>(bracket - text_.begin()); place < word.place;) {
    word.width -= font_.glyph(nextCodePoint(text_, place)).advance;
  }
  word.place = static_cast<std::size_t>(bracket - text_.begin());
  return word;
}

TextSegment TextSegments::cut(std::size_t end, bool shaped, std::int64_t width) {
  const TextSegment segment{text_.substr(place_, end - place_), shaped, width};
  place_ = end;
  return segment;
}

std::size_t TextSegments::shapedEnd() const {
  if (text_.size() - place_ <= maxShaped) return text_.size();
  const std::size_t space = text_.substr(place_, maxShaped).rfind(u' ');
  if (space != std::u16string_view::npos && space > 0) return place_ + space + 1;
  const std::size_t end = place_ + maxShaped;
  // A simple character starts something new for sure, anything else may belong to the one before it.
  for (std::size_t cut = end; cut > end - maxWord; --cut) {
    if (!isSurrogate(text_[cut]) && scriptClass(text_[cut]) == ScriptClass::Simple) return cut;
  }
  return isLowSurrogate(text_[end]) && isHighSurrogate(text_[end - 1]) ? end - 1 : end;
}

bool TextSegments::next(std::int64_t room, TextSegment& segment) {
  if (place_ == text_.size()) return false;
  Cut word{place_, 0};      // where the current word starts
  Cut previous{place_, 0};  // where the previous character starts
  std::int64_t width = 0;
  bool afterSpace = false;
  for (std::size_t place = place_; place < text_.size() && width <= room;) {
    const Cut here{place, width};
    const char32_t codePoint = nextCodePoint(text_, place);
    const Glyph& glyph = font_.glyph(codePoint);
    if (glyph.needsShaping) {
      // The character before goes along even if it is a space: a mark stands on it.
      const Cut from = pairStart(here.place - word.place <= maxWord ? word : previous);
      segment = from.place == place_ ? cut(shapedEnd(), true, 0) : cut(from.place, false, from.width);
      return true;
    }
    if (afterSpace) word = here;
    afterSpace = codePoint == U' ';
    previous = here;
    width += glyph.advance;
    if (width > room || place == text_.size()) {
      segment = cut(place, false, width);
      return true;
    }
  }
  return false;
}

}  // namespace tessera
