#include "config/ambient_font.h"

namespace tessera {
namespace {

constexpr std::int32_t boldWeight = 700;

std::int32_t styleOf(const AmbientFont& font) {
  return (font.weight == boldWeight ? font_style::bold : 0) | (font.italic ? font_style::italic : 0) |
         (font.underline ? font_style::underline : 0);
}

}  // namespace

void applyAmbientFont(CellStyle& style, const AmbientFont& font, EvalState& state) {
  if (style.effectiveFontSize(state) == 0) style.setFontSize(font.points);
  if (style.effectiveFontName(state).empty()) style.setFontName(font.face.toUtf8());
  const std::int32_t hostStyle = styleOf(font);
  if (hostStyle != 0 && style.effectiveFontStyle(state) == 0) style.setFontStyle(hostStyle);
}

void applyAmbientFont(GridConfig& config, const AmbientFont& font, EvalState& state) {
  applyAmbientFont(config.indicator, font, state);
  for (ColumnRecord& column : config.columns) {
    applyAmbientFont(column.header, font, state);
    applyAmbientFont(column.view, font, state);
    applyAmbientFont(column.summary, font, state);
    for (GroupCell& group : column.groups) applyAmbientFont(group, font, state);
  }
}

}  // namespace tessera
