// What may be typed into an edit box, and what of a cell's text fits into it.

#pragma once

#include <cstdint>
#include <string_view>

#include <tessera/xstring.h>

namespace tessera {

struct EditRules {
  std::int32_t inputType = 0;  // input_type bits
  std::int32_t limit = 0;      // most characters; a numeric box does not count its point, else its minus
  std::int32_t decimals = 0;   // most digits after the point of a numeric box; the point itself needs one
};

struct Selection {
  std::int32_t start = 0;  // code units
  std::int32_t end = 0;
};

// May `character` take the place of the selection in `text`?
bool mayEnter(std::u16string_view text, Selection selection, char16_t character, const EditRules& rules);

// `text` as the box opens with it. A numeric cell's text loses the digits that are too many after its point,
// and with `decimals` below 0 the point too; then both kinds lose what is beyond the limit. No cut goes
// through a pair of surrogates.
XString fittingText(const XString& text, bool numeric, const EditRules& rules);

}  // namespace tessera
