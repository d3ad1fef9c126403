// The language of display formats: masks and number pictures.

#pragma once

#include <cstdint>
#include <string_view>

#include <tessera/xstring.h>

namespace tessera {

// What a number picture says about a number; a separator of 0 is none.
struct NumberFormat {
  char16_t groupSeparator = 0;
  char16_t decimalSeparator = 0;
  std::int32_t groupSize = 0;  // digits between separators; 0 no groups
  std::int32_t mandatory = 0;  // decimals that are always shown
  std::int32_t optional = 0;   // decimals after them, of which trailing zeros are left out
};

// `text` reshaped by `format`. A mask takes the characters of the text one by one for each "X", a number
// picture groups the digits in front of the first "." and cuts or fills those behind it; "!" makes the next
// character of the format a literal. A faulty format and an empty text give the empty text. `out` keeps its
// storage, and nothing else is allocated for texts of usual length; `text` may lie inside it.
void applyDisplayFormat(std::u16string_view format, std::u16string_view text, XString& out);
XString applyDisplayFormat(std::u16string_view format, std::u16string_view text);

// The number alone. `text` need not be one: whatever stands in front of the first "." counts as digits.
void formatNumber(const NumberFormat& format, std::u16string_view text, XString& out);
XString formatNumber(const NumberFormat& format, std::u16string_view text);

}  // namespace tessera
