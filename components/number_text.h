// Numbers as the narrow text of cells, and cell texts as numbers.

#pragma once

#include <cstdint>
#include <string_view>

#include <tessera/xstring.h>

namespace tessera {

// Room for the longest number text: any double without exponent.
struct NumberBuffer {
  char data[352];
};

inline constexpr std::int32_t maxScale = 30;
// Decimal digits that every double keeps.
inline constexpr std::int32_t decimalDigits = 15;

std::string_view wholeText(std::int64_t value, NumberBuffer& buffer);
// With exactly `scale` digits after the point, of which those past the 15th digit of the number are zeros; a
// value that rounds to zero has no sign.
std::string_view decimalText(double value, std::int32_t scale, NumberBuffer& buffer);
// The same, but with as many digits after the point as the 15 digits of the number need.
std::string_view exactDecimalText(double value, std::int32_t scale, NumberBuffer& buffer);

// The number of 15 digits that `value` misses by no more than the rounding of a few additions; else `value`.
double withoutRoundingNoise(double value);

// A wholly numeric text, blanks around it and a leading plus allowed; false for anything else, also for a
// number out of range, infinities and NaN.
bool parseWhole(std::string_view text, std::int64_t& value);
bool parseDecimal(std::string_view text, double& value);

// `result` takes the UTF-8. Nothing is allocated once `result` has the room.
void assignUtf8(XString& result, std::string_view utf8);

}  // namespace tessera
