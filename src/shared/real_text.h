// Real numbers as narrow text and back, the same in every locale: the one place that asks the standard
// library for it. A platform whose library lacks these conversions replaces the .cpp file.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tessera {

enum class RealForm : std::uint8_t { Fixed, Scientific };

// As many digits behind the point as read back the same number.
inline constexpr std::int32_t shortestDigits = -1;

// Writes at `begin`, where there must be room for the text up to `end`, and gives the end of the text.
char* writeReal(char* begin, char* end, double value, RealForm form, std::int32_t digits = shortestDigits);

// A number that a text begins with, in decimal digits with or without a point and an exponent.
struct RealRead {
  double value = 0;
  std::size_t length = 0;  // of its text; 0: there is none
  bool inRange = true;     // false: `value` is the infinity or the zero that stands for it
};
RealRead readReal(std::string_view text);

}  // namespace tessera
