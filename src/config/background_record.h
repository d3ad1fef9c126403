// What lies under the cells.

#pragma once

#include "config/kept_expressions.h"

namespace tessera {

struct BackgroundRecord : CellStyle {
  BackgroundRecord() { borderStyle = border::none; }

  bool backImage = false;    // the image is switched on
  bool transparent = false;  // transparentColor is the image's key
  XString imagePath;
  KeptExpressions kept;
};

}  // namespace tessera
