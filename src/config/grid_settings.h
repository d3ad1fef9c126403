// The simple properties of a grid.

#pragma once

#include <cstdint>

#include <tessera/xstring.h>
#include <tessera/xvalue.h>

#include "shared/color.h"

namespace tessera {

namespace drag_drop {
inline constexpr std::int32_t rows = 1;   // rows and cells can be dragged
inline constexpr std::int32_t block = 2;  // blocks can be selected
}  // namespace drag_drop

enum class SummaryBand : std::int32_t { None = 0, Bottom = 1, Top = 2 };

struct GridSettings {
  XString DataID;
  XString ImageDataID;
  XString ColumnInfo;
  XString IndicatorInfo;
  XString BackgroundInfo;
  XString MenuInfo;
  bool Draw = true;
  bool Enable = true;
  bool ViewHeader = true;
  SummaryBand ViewSummary = SummaryBand::None;
  ColorRef SelectedColor = rgb(0, 0, 0xFF);
  std::int32_t SelectedColorRate = 20;  // per cent
  std::int32_t IME = 0;                 // 0 leave alone, 1 native, 2 English
  bool Sort = true;
  std::int32_t DragDrop = 0;  // drag_drop bits
  std::int32_t Resize = 1;    // bit 1: columns can be resized by the mouse
  bool FixHScroll = false;
  bool FixVScroll = false;
  bool FocusRect = true;
  XValue Temp;
};

}  // namespace tessera
