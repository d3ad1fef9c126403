// The number that a text starts with.

#pragma once

#include <string_view>

namespace tessera {

// White space, a sign, digits with at most one point, an exponent; up to the first unit that fits none of
// them, and 0 when there are no digits. Too large a number is infinite, too small a one 0.
double leadingNumber(std::u16string_view text);

}  // namespace tessera
