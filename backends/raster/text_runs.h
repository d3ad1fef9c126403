// Stretches of one direction, script and face.

#pragma once

#include <cstdint>
#include <hb.h>
#include <string_view>
#include <vector>

#include "backends/raster/font.h"

namespace tessera {

struct TextRun {
  std::size_t begin = 0;  // characters
  std::size_t end = 0;
  std::uint8_t level = 0;  // odd: right to left
  hb_script_t script = HB_SCRIPT_COMMON;
  FontFace* face = nullptr;  // null without any installed font
};

// The runs of `text` in the order in which they stand on the line, from left to right.
std::vector<TextRun> visualRuns(Font& font, std::u32string_view text);

}  // namespace tessera
