// What the scroll bars show.

#pragma once

#include <optional>

#include "geometry/column_scroll.h"

namespace tessera {

// Recompute a bar and hand it to the window. A page that became wider than what is left of the columns pulls
// hidden columns back in. The window may change its client size and tell of it before they return.
void updateHorizontalBar(ColumnScroll scroll, const GridSettings& settings, Window& window);
void updateVerticalBar(PageView& page, const GridFrame& frame, const RowTree& rows,
                       const GridSettings& settings, Window& window);

// Writes the positions to the bars that are in use.
void SetBarPositions(const PageView& page, Window& window);

// The ranges as pure functions; nothing when everything fits.
// `knownRight` is the right edge of all scrolled columns where that is known already, else 0.
std::optional<BarRange> horizontalRange(const ColumnList& columns, const GridFrame& frame,
                                        std::int32_t knownRight);
std::optional<BarRange> verticalRange(const GridFrame& frame, std::int32_t displayCount,
                                      std::int32_t topOrdinal);

}  // namespace tessera
