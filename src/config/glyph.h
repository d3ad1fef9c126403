// The small pictures of the module: marks, lights, boxes and buttons.

#pragma once

#include <cstdint>

namespace tessera {

// Named by resource number. All are drawn over a key of pure green.
enum class Glyph : std::uint16_t {
  None = 0,
  SortUp = 208,      // 8 by 7
  SortDown = 211,    // 8 by 7
  LightGreen = 212,  // 10 by 10, as the following
  LightRed = 213,
  LightGrey = 214,
  DeletedMarked = 215,
  Deleted = 217,
  Inserted = 218,
  InsertedMarked = 219,
  Updated = 220,
  UpdatedMarked = 221,
  PopupButton = 222,  // 17 by 17
  CheckOff = 223,     // 14 by 14, as the following
  CheckOn = 224,
  DropButton = 225,  // 17 by 17
  RadioOn = 226,
  RadioOff = 227,
};

inline constexpr std::uint32_t glyphKey = 0x00FF00;

}  // namespace tessera
