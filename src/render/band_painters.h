// The cells of the header band and of the summary band.

#pragma once

#include "render/paint_context.h"

namespace tessera {

void paintHeaderCell(const PaintContext& context, const ColumnRecord& column);
// `bandTop` is the top of the summary band.
void paintSummaryCell(const PaintContext& context, const ColumnRecord& column, std::int32_t bandTop);

}  // namespace tessera
