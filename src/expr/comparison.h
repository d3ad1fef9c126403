// Comparisons of values.

#pragma once

#include <cstdint>

#include "expr/expr_call.h"
#include "shared/compare.h"

namespace tessera {

// Whether `left` is before, level with or behind `right`. A comparison with what is no number finds neither
// less nor greater.
template <class T>
constexpr std::int32_t order(T left, T right) {
  return (left > right) - (left < right);
}

inline std::int32_t orderNumbers(const XValue& left, const XValue& right) {
  return order(numberOf(left), numberOf(right));
}
// By the 16-bit values: true, -1, is less than false.
inline std::int32_t orderLogicals(const XValue& left, const XValue& right) {
  return order(logicalOf(left), logicalOf(right));
}
// By code units; case and trailing blanks count.
inline std::int32_t orderTexts(const XValue& left, const XValue& right) {
  return compareExact(ExprText(left), ExprText(right));
}

}  // namespace tessera
