#include "shared/rect.h"

namespace tessera {

std::int32_t mulDiv(std::int32_t value, std::int32_t numerator, std::int32_t denominator) {
  if (denominator == 0) return -1;
  std::int64_t product = static_cast<std::int64_t>(value) * numerator;
  std::int64_t divisor = denominator;
  if (divisor < 0) {
    product = -product;
    divisor = -divisor;
  }
  const std::int64_t half = divisor / 2;
  const std::int64_t result = (product + (product < 0 ? -half : half)) / divisor;
  return clampToInt(result) == result ? static_cast<std::int32_t>(result) : -1;
}

}  // namespace tessera
