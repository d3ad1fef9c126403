// Values as the text that a cell shows.

#pragma once

#include <tessera/xvalue.h>

#include "config/group_cell.h"
#include "config/header_cell.h"
#include "config/summary_cell.h"

namespace tessera {

// The text of a value before any display format: integers (VT_I4, VT_I8) as decimal digits, VT_R4 and VT_R8
// rounded to `decimals` digits after the point, texts as they are; every other type gives the empty text.
// `out` keeps its storage.
void valueText(const XValue& value, std::int32_t decimals, XString& out);

// The text of a value under a style: valueText(), then the style's display format in force. `out` keeps its
// storage, so that painting with one XString allocates nothing.
void formatValue(const CellStyle& style, const XValue& value, EvalState& state, XString& out);
XString formatValue(const CellStyle& style, const XValue& value, EvalState& state);

// A literal text under a style.
void formatText(const CellStyle& style, std::u16string_view text, EvalState& state, XString& out);

// The value of the cell's text expression, or its literal text when there is none or it fails, formatted.
void displayText(const HeaderCell& cell, EvalState& state, XString& out);
void displayText(const SummaryCell& cell, EvalState& state, XString& out);
void displayText(const GroupCell& cell, EvalState& state, XString& out);

}  // namespace tessera
