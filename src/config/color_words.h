// Colours as text.

#pragma once

#include <string_view>

#include <tessera/xstring.h>

#include "shared/color.h"

namespace tessera {

// "#" and up to six hexadecimal digits in the order red, green, blue, of which the first other character ends
// the reading; a decimal number, taken as the 0x00BBGGRR value itself; or a name, in any case. noColor for
// every other text.
ColorRef parseColor(std::u16string_view text);

// "#rrggbb" with lower-case digits.
XString colorToText(ColorRef color);

}  // namespace tessera
