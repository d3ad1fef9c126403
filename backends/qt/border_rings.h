// The rings of one pixel that borders are made of.

#pragma once

#include <span>

#include "shared/screen.h"

class QPainter;
class QRect;

namespace tessera {

struct BorderRing {
  ColorRef Screen::*topLeft;
  ColorRef Screen::*bottomRight;
};

// From the outside in.
namespace rings {
inline constexpr BorderRing line[] = {{&Screen::darkShadow, &Screen::darkShadow}};
inline constexpr BorderRing sunken[] = {{&Screen::shadow, &Screen::highlight},
                                        {&Screen::darkShadow, &Screen::light}};
inline constexpr BorderRing raised[] = {{&Screen::light, &Screen::darkShadow},
                                        {&Screen::highlight, &Screen::shadow}};
inline constexpr BorderRing frame[] = {raised[0], raised[1], {&Screen::face, &Screen::face}};
}  // namespace rings

// Inside the border of `area`.
void paintRings(QPainter& painter, const QRect& area, std::span<const BorderRing> rings);

}  // namespace tessera
