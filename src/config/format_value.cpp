#include "config/format_value.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "config/display_format.h"
#include "shared/number_text.h"
#include "shared/real_text.h"

namespace tessera {
namespace {

// A negative count means six, as in printf. No double has more digits than the upper bound, which also keeps
// a wild scale from asking for gigabytes of zeros.
constexpr std::int32_t defaultDecimals = 6;
constexpr std::int32_t mostDecimals = 1100;
constexpr std::size_t mostRealChars = 320 + mostDecimals;

void realText(double value, std::int32_t decimals, XString& out) {
  std::array<char, mostRealChars> text;
  const std::int32_t digits = decimals < 0 ? defaultDecimals : std::min(decimals, mostDecimals);
  const char* const end =
      writeReal(text.data(), text.data() + text.size(), withoutNanSign(value), RealForm::Fixed, digits);
  out.assignNarrow({text.data(), static_cast<std::size_t>(end - text.data())});
}

void integerText(std::int64_t value, XString& out) {
  std::array<char, 24> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value);
  out.assignNarrow({text.data(), static_cast<std::size_t>(end.ptr - text.data())});
}

void applyFormatOf(const CellStyle& style, EvalState& state, XString& out) {
  if (!style.isDynamic(DynamicSlot::DisplayFormat)) {
    if (!style.displayFormat.empty()) applyDisplayFormat(style.displayFormat, out, out);
    return;
  }
  const XString format = style.effectiveDisplayFormat(state);
  if (!format.empty()) applyDisplayFormat(format, out, out);
}

template <class Cell>
void cellDisplayText(const Cell& cell, EvalState& state, XString& out) {
  XValue value;
  if (cell.evaluate(DynamicSlot::Text, state, value)) return formatValue(cell, value, state, out);
  formatText(cell, cell.text, state, out);
}

}  // namespace

void valueText(const XValue& value, std::int32_t decimals, XString& out) {
  switch (value.type()) {
    case VT_I4:
      return integerText(value.asInt(), out);
    case VT_I8:
      return integerText(value.asInt64(), out);
    case VT_R4:
    case VT_R8:
      return realText(value.asDouble(), decimals, out);
    case VT_BSTR:
      return out.assign(value.asText());
    default:
      return out.assign({});
  }
}

void formatValue(const CellStyle& style, const XValue& value, EvalState& state, XString& out) {
  valueText(value, style.decimals, out);
  applyFormatOf(style, state, out);
}

XString formatValue(const CellStyle& style, const XValue& value, EvalState& state) {
  XString out;
  formatValue(style, value, state, out);
  return out;
}

void formatText(const CellStyle& style, std::u16string_view text, EvalState& state, XString& out) {
  out.assign(text);
  applyFormatOf(style, state, out);
}

void displayText(const HeaderCell& cell, EvalState& state, XString& out) {
  cellDisplayText(cell, state, out);
}
void displayText(const SummaryCell& cell, EvalState& state, XString& out) {
  cellDisplayText(cell, state, out);
}
void displayText(const GroupCell& cell, EvalState& state, XString& out) { cellDisplayText(cell, state, out); }

}  // namespace tessera
