// The style that every cell record starts with.

#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include <tessera/xstring.h>

#include "config/glyph.h"
#include "expr/xexpr_program.h"
#include "shared/color.h"
#include "shared/late_bitmap.h"
#include "shared/log_font.h"
#include "shared/screen.h"

namespace tessera {

// Attributes that an expression may compute for each row. The number is the slot of the program; its bit in
// `dynamicFlags` is 1 << slot.
enum class DynamicSlot : std::int32_t {
  TextColor = 0,
  BackColor = 1,
  BorderColor = 2,
  FontSize = 3,
  FontName = 4,
  FontStyle = 5,
  Cursor = 6,
  Text = 7,
  DisplayFormat = 8,
};
inline constexpr std::int32_t dynamicSlotCount = 9;

constexpr std::uint32_t dynamicBit(DynamicSlot slot) { return 1u << static_cast<std::int32_t>(slot); }
// A ViewCell shows its literal text in place of the dataset value.
inline constexpr std::uint32_t literalTextBit = 0x200;

namespace align {
inline constexpr std::int32_t left = 1, center = 2, right = 4;    // horizontal
inline constexpr std::int32_t top = 8, middle = 16, bottom = 32;  // vertical
inline constexpr std::int32_t centerCenter = center | middle;
inline constexpr std::int32_t leftCenter = left | middle;
inline constexpr std::int32_t full = -1;          // fills the cell, as VIEW and BackgroundInfo store it
inline constexpr std::int32_t fullWord = 940302;  // the same, as the other readers store it
}  // namespace align

namespace border {
inline constexpr std::int32_t none = 0, line = 1, raisedInner = 2, sunkenInner = 4, raisedOuter = 8,
                              sunkenOuter = 16;
}

namespace image_mode {
inline constexpr std::uint32_t solid = 0, placed = 1, stretched = 2, blended = 4, transparent = 8;
}

namespace font_style {
inline constexpr std::int32_t bold = 1, italic = 2, underline = 4;
}

// A plain record with value semantics: copies share the bitmap and the borrowed programs.
struct CellStyle {
  std::uint32_t imageMode = image_mode::solid;  // how the background is painted
  std::int32_t alphaRate = 20;                  // per cent of transparency of a blended fill
  ColorRef transparentColor = noColor;          // key of image_mode::transparent
  LateBitmap imageHandle;
  std::int32_t leftMargin = 3;  // pixels
  std::int32_t topMargin = 3;
  std::int32_t rightMargin = 3;
  std::int32_t bottomMargin = 3;
  std::int32_t align = align::centerCenter;
  std::int32_t borderStyle = border::line;
  ColorRef borderColor = rgb(0x80, 0x80, 0x80);
  ColorRef textColor = screen().windowText;
  ColorRef backColor = screen().window;
  std::int32_t fontSize = 0;   // points; 0 takes the host font's
  std::int32_t fontStyle = 0;  // font_style bits; 0 takes the host font's
  LogFont font;                // kept in step with size, style and face
  XString displayFormat;
  std::int32_t decimals = 0;  // digits after the point of VT_R4 and VT_R8
  std::int32_t sortMark = 0;  // 1 up, 2 down
  Glyph sortBitmapUp = Glyph::None;
  Glyph sortBitmapDown = Glyph::None;
  std::uint32_t dynamicFlags = 0;
  std::array<const XExprProgram*, dynamicSlotCount> expressions{};  // borrowed

  bool isDynamic(DynamicSlot slot) const { return (dynamicFlags & dynamicBit(slot)) != 0; }
  // A null program is ignored.
  void setDynamic(DynamicSlot slot, const XExprProgram* program);
  void clearDynamic(DynamicSlot slot);
  // Null when the attribute is not dynamic or its run ended in an error. The value stands until the state's
  // next run.
  const XValue* computed(DynamicSlot slot, EvalState& state) const;
  // The same as a copy; false, and an empty value if the attribute is dynamic, when there is none. A `value`
  // that is used again and again lets go of the last text first, so that the state can write the next one
  // where it stood.
  bool evaluate(DynamicSlot slot, EvalState& state, XValue& value) const;

  void setFontSize(std::int32_t points);
  void setFontStyle(std::int32_t flags);
  void setFontName(std::string_view utf8);

  // The stored field, or the expression's value for the state's row converted to the field. A run that ends
  // in an error leaves the stored field in force, and so does a text that is no font style.
  ColorRef effectiveTextColor(EvalState& state) const;
  ColorRef effectiveBackColor(EvalState& state) const;
  ColorRef effectiveBorderColor(EvalState& state) const;
  std::int32_t effectiveFontSize(EvalState& state) const;
  XString effectiveFontName(EvalState& state) const;
  std::int32_t effectiveFontStyle(EvalState& state) const;
  XString effectiveDisplayFormat(EvalState& state) const;
  // `font` after the three dynamic font attributes.
  LogFont effectiveFont(EvalState& state) const;
};

}  // namespace tessera
