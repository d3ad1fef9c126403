// What the scroll bars show.

#pragma once

#include <optional>

#include "geometry/column_scroll.h"

namespace tessera {

// Recomputes the bars of `which` (bar_bit) and hands them to the window. A page that became wider than what
// is left of the columns pulls hidden columns back in.
void UpdateScrollBars(ColumnScroll scroll, RowTree& rows, const GridSettings& settings, Window& window,
                      std::int32_t which);

// Writes the positions to the bars that are in use.
void SetBarPositions(const PageView& page, Window& window);

// The ranges as pure functions; nothing when everything fits.
std::optional<BarRange> horizontalRange(const ColumnList& columns, const GridFrame& frame);
std::optional<BarRange> verticalRange(const GridFrame& frame, std::int32_t displayCount,
                                      std::int32_t topOrdinal);

}  // namespace tessera
