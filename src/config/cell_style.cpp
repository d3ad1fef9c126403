#include "config/cell_style.h"

#include "config/color_words.h"
#include "config/value_words.h"
#include "shared/compare.h"

namespace tessera {
namespace {

constexpr ColorRef colorOfOtherTypes = 0xFFFFFF;

constexpr std::size_t indexOf(DynamicSlot slot) { return static_cast<std::size_t>(slot); }

ColorRef colorOf(const XValue& value) {
  if (value.type() == VT_I4) return static_cast<ColorRef>(value.asInt());
  return value.type() == VT_BSTR ? parseColor(value.asText()) : colorOfOtherTypes;
}

ColorRef effectiveColor(const CellStyle& style, DynamicSlot slot, ColorRef stored, EvalState& state) {
  const XValue* value = style.computed(slot, state);
  return value ? colorOf(*value) : stored;
}

void applySize(LogFont& font, std::int32_t points) { font.lfHeight = pointsToHeight(points); }

void applyStyle(LogFont& font, std::int32_t flags) {
  font.lfWeight = (flags & font_style::bold) != 0 ? 700 : 0;
  font.lfItalic = (flags & font_style::italic) != 0 ? 1 : 0;
  font.lfUnderline = (flags & font_style::underline) != 0 ? 1 : 0;
}

}  // namespace

void CellStyle::setDynamic(DynamicSlot slot, const XExprProgram* program) {
  if (!program) return;
  dynamicFlags |= dynamicBit(slot);
  expressions[indexOf(slot)] = program;
}

void CellStyle::clearDynamic(DynamicSlot slot) {
  dynamicFlags &= ~dynamicBit(slot);
  expressions[indexOf(slot)] = nullptr;
}

const XValue* CellStyle::computed(DynamicSlot slot, EvalState& state) const {
  const XExprProgram* program = expressions[indexOf(slot)];
  return isDynamic(slot) && program ? program->evaluate(state) : nullptr;
}

bool CellStyle::evaluate(DynamicSlot slot, EvalState& state, XValue& value) const {
  if (!isDynamic(slot)) return false;
  value.setEmpty();
  const XValue* result = computed(slot, state);
  if (result) value = *result;
  return result != nullptr;
}

void CellStyle::setFontSize(std::int32_t points) {
  fontSize = points;
  applySize(font, points);
}

void CellStyle::setFontStyle(std::int32_t flags) {
  fontStyle = flags;
  applyStyle(font, flags);
}

void CellStyle::setFontName(std::string_view utf8) { font.setFace(utf8); }

ColorRef CellStyle::effectiveTextColor(EvalState& state) const {
  return effectiveColor(*this, DynamicSlot::TextColor, textColor, state);
}

ColorRef CellStyle::effectiveBackColor(EvalState& state) const {
  return effectiveColor(*this, DynamicSlot::BackColor, backColor, state);
}

ColorRef CellStyle::effectiveBorderColor(EvalState& state) const {
  return effectiveColor(*this, DynamicSlot::BorderColor, borderColor, state);
}

std::int32_t CellStyle::effectiveFontSize(EvalState& state) const {
  const XValue* value = computed(DynamicSlot::FontSize, state);
  if (!value) return fontSize;
  if (value->type() == VT_I4) return value->asInt();
  return value->type() == VT_BSTR ? parseInt(value->asText()) : 0;
}

XString CellStyle::effectiveFontName(EvalState& state) const {
  const XValue* value = computed(DynamicSlot::FontName, state);
  return value ? value->asText() : XString::fromNarrow(font.face());
}

std::int32_t CellStyle::effectiveFontStyle(EvalState& state) const {
  const XValue* value = computed(DynamicSlot::FontStyle, state);
  if (!value) return fontStyle;
  if (value->type() != VT_BSTR) return 0;
  const std::int32_t flags = parseFontStyle(value->asText());
  return flags == unknownWord ? fontStyle : flags;
}

XString CellStyle::effectiveDisplayFormat(EvalState& state) const {
  const XValue* value = computed(DynamicSlot::DisplayFormat, state);
  return value ? value->asText() : displayFormat;
}

LogFont CellStyle::effectiveFont(EvalState& state) const {
  LogFont result = font;
  if (isDynamic(DynamicSlot::FontSize)) applySize(result, effectiveFontSize(state));
  if (isDynamic(DynamicSlot::FontStyle)) applyStyle(result, effectiveFontStyle(state));
  if (isDynamic(DynamicSlot::FontName)) result.setFace(effectiveFontName(state).toUtf8());
  return result;
}

}  // namespace tessera
