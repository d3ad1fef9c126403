#include "backends/raster/bidi_levels.h"

#include <algorithm>
#include <fribidi.h>

namespace tessera {
namespace {

// All scripts that are written from right to left lie in these blocks, the numbers and signs that go with
// them, too.
bool mayTurn(char32_t codePoint) {
  if (codePoint < 0x0590) return false;
  return codePoint <= 0x08FF || codePoint == 0x200F || (codePoint >= 0xFB1D && codePoint <= 0xFDFF) ||
         (codePoint >= 0xFE70 && codePoint <= 0xFEFF) || (codePoint >= 0x10800 && codePoint <= 0x10FFF) ||
         (codePoint >= 0x1E800 && codePoint <= 0x1EFFF);
}

struct Classes {
  explicit Classes(std::u32string_view text) : types(text.size()), brackets(text.size()) {
    for (std::size_t i = 0; i < text.size(); ++i) {
      const FriBidiCharType type = fribidi_get_bidi_type(text[i]);
      const bool steers = FRIBIDI_IS_EXPLICIT(type) || FRIBIDI_IS_ISOLATE(type);
      types[i] = steers ? FRIBIDI_TYPE_BN : type;
      brackets[i] = type == FRIBIDI_TYPE_ON ? fribidi_get_bracket(text[i]) : FRIBIDI_NO_BRACKET;
    }
  }

  std::vector<FriBidiCharType> types;
  std::vector<FriBidiBracketType> brackets;
};

}  // namespace

void bidiLevels(std::u32string_view text, std::vector<std::uint8_t>& levels) {
  levels.assign(text.size(), 0);
  if (std::none_of(text.begin(), text.end(), mayTurn)) return;
  const Classes classes(text);
  std::vector<FriBidiLevel> resolved(text.size());
  FriBidiParType direction = FRIBIDI_PAR_LTR;
  const FriBidiLevel most = fribidi_get_par_embedding_levels_ex(classes.types.data(), classes.brackets.data(),
                                                                static_cast<FriBidiStrIndex>(text.size()),
                                                                &direction, resolved.data());
  if (most > 0) std::copy(resolved.begin(), resolved.end(), levels.begin());  // zero: out of memory
}

bool opensPair(char32_t codePoint) {
  const FriBidiBracketType bracket = fribidi_get_bracket(codePoint);
  return bracket != FRIBIDI_NO_BRACKET && FRIBIDI_IS_BRACKET_OPEN(bracket);
}

}  // namespace tessera
