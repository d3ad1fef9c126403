#include "backends/raster/text_shaper.h"

#include <hb.h>
#include <iterator>
#include <memory>
#include <utility>

#include "backends/raster/script_class.h"
#include "backends/raster/text_runs.h"

namespace tessera {
namespace {

struct Release {
  void operator()(hb_buffer_t* buffer) const { hb_buffer_destroy(buffer); }
};
using Buffer = std::unique_ptr<hb_buffer_t, Release>;

constexpr hb_feature_t features[] = {
    {HB_TAG('k', 'e', 'r', 'n'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
    {HB_TAG('l', 'i', 'g', 'a'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
    {HB_TAG('c', 'l', 'i', 'g'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
};

// What a character is shaped as: the same signs that are drawn one by one must come out the same here.
char32_t shapedAs(char32_t codePoint) {
  constexpr char32_t invisible = 0x200B;
  if (isShownAsSpace(codePoint)) return U' ';
  if (isSurrogate(codePoint)) return 0xFFFD;
  return scriptClass(codePoint) == ScriptClass::Control ? invisible : codePoint;
}

std::u32string decoded(std::u16string_view text) {
  std::u32string characters;
  characters.reserve(text.size());
  for (std::size_t place = 0; place < text.size();) {
    characters.push_back(shapedAs(nextCodePoint(text, place)));
  }
  return characters;
}

// 1/64 pixels, halves upwards.
std::int32_t roundedPixels(hb_position_t units) { return (units + 32) >> 6; }

void appendGlyphs(hb_buffer_t* buffer, FontFace& face, ShapedText& shaped) {
  unsigned count = 0;
  const hb_glyph_info_t* const infos = hb_buffer_get_glyph_infos(buffer, &count);
  const hb_glyph_position_t* const positions = hb_buffer_get_glyph_positions(buffer, &count);
  for (unsigned i = 0; i < count; ++i) {
    shaped.glyphs.push_back({&face.glyph(infos[i].codepoint),
                             shaped.width + roundedPixels(positions[i].x_offset),
                             -roundedPixels(positions[i].y_offset)});
    shaped.width += roundedPixels(positions[i].x_advance);
  }
}

void shapeRun(hb_buffer_t* buffer, const std::vector<hb_codepoint_t>& text, const TextRun& run,
              ShapedText& shaped) {
  hb_buffer_reset(buffer);
  // The neighbours of the run go along: letters join across a change of the face.
  hb_buffer_add_codepoints(buffer, text.data(), static_cast<int>(text.size()),
                           static_cast<unsigned>(run.begin), static_cast<int>(run.end - run.begin));
  hb_buffer_set_direction(buffer, run.level & 1 ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
  hb_buffer_set_script(buffer, run.script);
  hb_buffer_set_language(buffer, hb_language_from_string("und", -1));
  hb_shape(run.face->shapingFont(), buffer, features, std::size(features));
  appendGlyphs(buffer, *run.face, shaped);
}

ShapedText shapedText(Font& font, std::u16string_view text) {
  ShapedText shaped;
  const std::u32string characters = decoded(text);
  const std::vector<hb_codepoint_t> shapable(characters.begin(), characters.end());
  const Buffer buffer(hb_buffer_create());
  for (const TextRun& run : visualRuns(font, characters)) {
    if (run.face) shapeRun(buffer.get(), shapable, run, shaped);
  }
  return shaped;
}

}  // namespace

std::size_t TextShaper::Hash::operator()(const KeyView& key) const {
  return std::hash<std::u16string_view>{}(key.text) ^ std::hash<const Font*>{}(key.font);
}

std::size_t TextShaper::weight(const Key& key, const ShapedText& text) {
  constexpr std::size_t overhead = 8;  // an entry without glyphs is not free either
  return text.glyphs.size() + key.text.size() / 4 + overhead;
}

void TextShaper::makeRoom(std::size_t weight) {
  if (youngGlyphs_ + weight <= maxGlyphs) return;
  old_ = std::exchange(young_, {});
  youngGlyphs_ = 0;
}

const ShapedText& TextShaper::shape(Font& font, std::u16string_view text) {
  const KeyView view{&font, text};
  if (const auto found = young_.find(view); found != young_.end()) return found->second;
  Texts::node_type node;
  if (const auto found = old_.find(view); found != old_.end()) {
    node = old_.extract(found);
  } else {
    ++shapings_;
    Texts made;
    made.emplace(Key{&font, std::u16string(text)}, shapedText(font, text));
    node = made.extract(made.begin());
  }
  const std::size_t added = weight(node.key(), node.mapped());
  makeRoom(added);
  youngGlyphs_ += added;
  return young_.insert(std::move(node)).position->second;
}

void TextShaper::clear() {
  young_.clear();
  old_.clear();
  youngGlyphs_ = 0;
}

}  // namespace tessera
