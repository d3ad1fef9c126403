#include "backends/raster/text_runs.h"

#include <algorithm>

#include "backends/raster/bidi_levels.h"

namespace tessera {
namespace {

bool isReal(hb_script_t script) {
  return script != HB_SCRIPT_COMMON && script != HB_SCRIPT_INHERITED && script != HB_SCRIPT_UNKNOWN;
}

// Signs that many scripts share take the script before them, at the start the one after.
std::vector<hb_script_t> scriptsOf(std::u32string_view text) {
  std::vector<hb_script_t> scripts(text.size());
  hb_unicode_funcs_t* const unicode = hb_unicode_funcs_get_default();
  std::transform(text.begin(), text.end(), scripts.begin(),
                 [&](char32_t codePoint) { return hb_unicode_script(unicode, codePoint); });
  const auto first = std::find_if(scripts.begin(), scripts.end(), isReal);
  hb_script_t current = first == scripts.end() ? HB_SCRIPT_COMMON : *first;
  for (hb_script_t& script : scripts) {
    if (isReal(script)) current = script;
    script = current;
  }
  return scripts;
}

// Marks and joiners must not part from the letter they change, and a space in the middle of a script need
// not change the face.
bool staysWithFace(char32_t codePoint) {
  hb_unicode_funcs_t* const unicode = hb_unicode_funcs_get_default();
  const hb_unicode_general_category_t category = hb_unicode_general_category(unicode, codePoint);
  return category == HB_UNICODE_GENERAL_CATEGORY_NON_SPACING_MARK ||
         category == HB_UNICODE_GENERAL_CATEGORY_SPACING_MARK ||
         category == HB_UNICODE_GENERAL_CATEGORY_ENCLOSING_MARK ||
         category == HB_UNICODE_GENERAL_CATEGORY_FORMAT;
}

FontFace* faceAfter(FontFace* previous, Font& font, char32_t codePoint) {
  if (!previous || !staysWithFace(codePoint)) return font.faceFor(codePoint);
  const bool kept = previous->glyphIndex(codePoint) != 0 || !font.covers(codePoint);
  return kept ? previous : font.faceFor(codePoint);
}

void reverseFrom(std::vector<TextRun>& runs, std::uint8_t level) {
  const auto below = [=](const TextRun& run) { return run.level < level; };
  for (auto at = runs.begin(); at != runs.end();) {
    const auto first = std::find_if_not(at, runs.end(), below);
    at = std::find_if(first, runs.end(), below);
    std::reverse(first, at);
  }
}

}  // namespace

std::vector<TextRun> visualRuns(Font& font, std::u32string_view text) {
  std::vector<std::uint8_t> levels;
  bidiLevels(text, levels);
  const std::vector<hb_script_t> scripts = scriptsOf(text);
  std::vector<TextRun> runs;
  FontFace* face = nullptr;
  for (std::size_t i = 0; i < text.size(); ++i) {
    face = faceAfter(face, font, text[i]);
    const bool same = !runs.empty() && runs.back().level == levels[i] && runs.back().script == scripts[i] &&
                      runs.back().face == face;
    if (!same) runs.push_back({i, i, levels[i], scripts[i], face});
    runs.back().end = i + 1;
  }
  reverseFrom(runs, 2);
  reverseFrom(runs, 1);
  return runs;
}

}  // namespace tessera
