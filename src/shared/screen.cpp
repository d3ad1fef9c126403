#include "shared/screen.h"

#include "shared/rect.h"

namespace tessera {
namespace {

constexpr std::int32_t pointsPerInch = 72;

constinit Screen current;

}  // namespace

const Screen& screen() { return current; }

void setScreen(const Screen& screen) { current = screen; }

std::int32_t pointsToHeight(std::int32_t points) {
  return -mulDiv(points, current.dotsPerInch, pointsPerInch);
}

std::int32_t heightToPoints(std::int32_t height) {
  return -mulDiv(height, pointsPerInch, current.dotsPerInch);
}

}  // namespace tessera
