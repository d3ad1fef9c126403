// How wide a column has to be.

#pragma once

#include "binding/image_cache.h"
#include "platform/canvas.h"
#include "rows/cell_text.h"

namespace tessera {

// The pixels that the widest cell of the column takes, over all rows of the data set, not only those of the
// page; with `includeSummary` its summary cell too. The row of `texts.eval` is the last one afterwards.
std::int32_t measureColumnWidth(Canvas& canvas, const TextSource& texts, const ImageCache& images,
                                const ColumnRecord& column, bool includeSummary);

}  // namespace tessera
