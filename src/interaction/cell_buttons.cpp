#include "interaction/cell_buttons.h"

#include "render/draw_style.h"
#include "render/glyphs.h"

namespace tessera {
namespace {

constexpr std::int32_t markGap = 3;  // from the side of the cell

// A pixel of slack above and below the glyph.
Rect aroundMiddle(const Rect& cell, std::int32_t left, std::int32_t right, std::int32_t glyphHeight) {
  const std::int32_t middle = addClamped(cell.top, cell.height() / 2);
  const std::int32_t half = glyphHeight / 2 + 1;
  return {left, subClamped(middle, half), right, addClamped(middle, half)};
}

Glyph buttonOf(const ChildSpec& child) {
  if (child.type == CellKind::Combo || child.type == CellKind::Lookup) return Glyph::DropButton;
  const bool popup = child.type == CellKind::Edit && child.subType != EditKind::Plain;
  return popup ? Glyph::PopupButton : Glyph::None;
}

}  // namespace

Rect buttonRect(const ColumnRecord& column, const Rect& cell) {
  const Glyph glyph = buttonOf(column.child);
  if (glyph == Glyph::None) return {};
  const Size size = glyphSize(glyph);
  return aroundMiddle(cell, subClamped(cell.right, size.width), cell.right, size.height);
}

Rect markRect(const ColumnRecord& column, const Rect& cell) {
  const ChildSpec& child = column.child;
  const bool isCheck = child.type == CellKind::Check;
  if (!isCheck && child.type != CellKind::Radio) return {};
  const Size size = glyphSize(isCheck ? child.checkBitmapOn : child.radioBitmapOn);
  const bool labelled = !(isCheck ? child.checkText : child.radioText).empty();
  switch (sideOf(column.view.align)) {
    case Side::Right: {
      const std::int32_t right = subClamped(cell.right, markGap);
      return aroundMiddle(cell, subClamped(right, size.width), right, size.height);
    }
    case Side::Center:
      if (!labelled) {
        const std::int32_t middle = addClamped(cell.left, cell.width() / 2);
        const std::int32_t half = size.width / 2 + 1;
        return aroundMiddle(cell, subClamped(middle, half), addClamped(middle, half), size.height);
      }
      break;
    case Side::Left:
      break;
  }
  const std::int32_t left = addClamped(cell.left, markGap);
  return aroundMiddle(cell, left, addClamped(left, size.width), size.height);
}

}  // namespace tessera
