// How one cell is drawn.

#pragma once

#include "config/cell_style.h"
#include "shared/rect.h"

namespace tessera {

// A record without its copy: the fields that painters change for the moment stand here, everything else and
// the expressions are read from the record. What must hold: record and image outlive it.
struct DrawStyle {
  explicit DrawStyle(const CellStyle& source)
      : record(source),
        imageMode(source.imageMode),
        transparentColor(source.transparentColor),
        image(source.imageHandle.get()),
        leftMargin(source.leftMargin),
        rightMargin(source.rightMargin),
        align(source.align),
        textColor(source.textColor),
        backColor(source.backColor) {}

  const CellStyle& record;
  std::uint32_t imageMode;
  ColorRef transparentColor;
  const Bitmap* image;  // null: none
  std::int32_t leftMargin;
  std::int32_t rightMargin;
  std::int32_t align;
  ColorRef textColor;  // an expression of the record goes before it, as before the next
  ColorRef backColor;

  // `cell` without the margins.
  Rect inner(const Rect& cell) const {
    return {addClamped(cell.left, leftMargin), addClamped(cell.top, record.topMargin),
            subClamped(cell.right, rightMargin), subClamped(cell.bottom, record.bottomMargin)};
  }
};

// The side that a horizontal align puts things at: the first bit in the order left, centre, right; left
// without any.
enum class Side { Left, Center, Right };
Side sideOf(std::int32_t align);

// Where something of the given size begins inside an area. Vertically the first bit in the order top, middle,
// bottom counts; top without any.
std::int32_t alignedX(std::int32_t align, const Rect& area, std::int32_t width);
std::int32_t alignedY(std::int32_t align, const Rect& area, std::int32_t height);

}  // namespace tessera
