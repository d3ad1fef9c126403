// What the screen of this process is like: resolution and system colours.

#pragma once

#include <cstdint>

#include "shared/color.h"

namespace tessera {

struct Screen {
  std::int32_t dotsPerInch = 96;
  ColorRef window = rgb(255, 255, 255);      // COLOR_WINDOW
  ColorRef windowText = rgb(0, 0, 0);        // COLOR_WINDOWTEXT
  ColorRef face = rgb(212, 208, 200);        // COLOR_3DFACE
  ColorRef highlight = rgb(255, 255, 255);   // COLOR_3DHIGHLIGHT
  ColorRef light = rgb(241, 239, 226);       // COLOR_3DLIGHT
  ColorRef shadow = rgb(172, 168, 153);      // COLOR_3DSHADOW
  ColorRef darkShadow = rgb(113, 111, 100);  // COLOR_3DDKSHADOW
};

// The one screen that records take their default colours and point sizes from. A back end sets it once,
// before the first control is made; it is read on every thread.
const Screen& screen();
void setScreen(const Screen& screen);

// Points to the negative character height of a font, and back.
std::int32_t pointsToHeight(std::int32_t points);
std::int32_t heightToPoints(std::int32_t height);

}  // namespace tessera
