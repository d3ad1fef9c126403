// Pictures beside pictures.

#pragma once

#include "shared/bitmap.h"

namespace tessera {

struct PictureDifference {
  std::int32_t count = 0;  // pixels that differ; those outside of one of the two do
  Bitmap picture;          // the actual picture, pale, with the pixels that differ in red
};

// Alpha does not count.
PictureDifference differenceOf(const Bitmap& expected, const Bitmap& actual);

// The expected picture, the actual one and the difference in one row, twice as large.
Bitmap sideBySide(const Bitmap& expected, const Bitmap& actual, const Bitmap& difference);

}  // namespace tessera
