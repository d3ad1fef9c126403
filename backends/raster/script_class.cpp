#include "backends/raster/script_class.h"

#include <algorithm>
#include <iterator>

namespace tessera {
namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// Sorted. Emoji are left to the shaper because skin tones and joiners change them.
constexpr Range simpleRanges[] = {
    {0x0020, 0x007E},    // ASCII
    {0x00A0, 0x00AC},    // Latin-1 up to the soft hyphen
    {0x00AE, 0x02FF},    // Latin, IPA, modifier letters
    {0x0370, 0x0482},    // Greek, Cyrillic
    {0x048A, 0x052F},    // Cyrillic
    {0x1E00, 0x200A},    // Latin additions, Greek with accents, spaces
    {0x2010, 0x2027},    // dashes, quotes
    {0x202F, 0x205F},    // punctuation
    {0x2070, 0x20CF},    // superscripts, currency
    {0x2100, 0x2BFF},    // letterlike signs, arrows, mathematics, boxes, shapes
    {0x2C60, 0x2C7F},    // Latin additions
    {0x2E00, 0x2FFB},    // punctuation, radicals
    {0x3000, 0x3029},    // ideographic punctuation
    {0x3030, 0x3098},    // Hiragana
    {0x309B, 0x9FFF},    // Katakana, Bopomofo, Hangul letters, ideographs
    {0xA720, 0xA7FF},    // Latin additions
    {0xAC00, 0xD7A3},    // Hangul syllables
    {0xD800, 0xDFFF},    // unpaired surrogates
    {0xE000, 0xFAFF},    // private use, compatibility ideographs
    {0xFB00, 0xFB06},    // Latin ligatures
    {0xFE30, 0xFE6F},    // vertical, small forms
    {0xFF01, 0xFFEF},    // half and full width forms
    {0xFFFC, 0xFFFD},    // replacement
    {0x1D400, 0x1D7FF},  // mathematical letters
    {0x20000, 0x3FFFF},  // ideographs
};

constexpr bool isControl(char32_t codePoint) {
  return codePoint < 0x20 || (codePoint >= 0x7F && codePoint <= 0x9F);
}

}  // namespace

ScriptClass scriptClass(char32_t codePoint) {
  if (isShownAsSpace(codePoint)) return ScriptClass::Simple;
  if (isControl(codePoint)) return ScriptClass::Control;
  const Range* const range =
      std::lower_bound(std::begin(simpleRanges), std::end(simpleRanges), codePoint,
                       [](const Range& candidate, char32_t value) { return candidate.last < value; });
  const bool simple = range != std::end(simpleRanges) && codePoint >= range->first;
  return simple ? ScriptClass::Simple : ScriptClass::Shaped;
}

}  // namespace tessera
