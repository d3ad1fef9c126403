// Measures and draws single lines of text.

#pragma once

#include <cstdint>
#include <string_view>

#include "backends/raster/font_cache.h"
#include "backends/raster/pixels.h"
#include "shared/log_font.h"
#include "shared/rect.h"

namespace tessera {

// The width is exact up to the 32-bit limit, however long the text is.
Size measureText(FontCache& cache, const LogFont& font, std::u16string_view text);

// `x` and `y` are the top left corner of the line. Nothing right of the clip is looked at.
void drawText(FontCache& cache, const Pixels& target, const Rect& clip, std::int32_t x, std::int32_t y,
              const LogFont& font, ColorRef color, std::u16string_view text);

}  // namespace tessera
