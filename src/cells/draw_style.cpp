#include "cells/draw_style.h"

namespace tessera {

Side sideOf(std::int32_t align) {
  if ((align & align::left) != 0) return Side::Left;
  if ((align & align::center) != 0) return Side::Center;
  return (align & align::right) != 0 ? Side::Right : Side::Left;
}

std::int32_t alignedX(std::int32_t align, const Rect& area, std::int32_t width) {
  switch (sideOf(align)) {
    case Side::Center:
      return addClamped(area.left, area.width() / 2 - width / 2);
    case Side::Right:
      return subClamped(area.right, width);
    case Side::Left:
      break;
  }
  return area.left;
}

std::int32_t alignedY(std::int32_t align, const Rect& area, std::int32_t height) {
  if ((align & align::top) != 0) return area.top;
  if ((align & align::middle) != 0) return addClamped(area.top, area.height() / 2 - height / 2);
  return (align & align::bottom) != 0 ? subClamped(area.bottom, height) : area.top;
}

}  // namespace tessera
