// The texts of rows that sum others.

#pragma once

#include "rows/cell_text.h"

namespace tessera {

// The text of `column` on a row of the dataset's `level` (above 0). A column without a group cell for the
// level stays empty. `level` comes back as the level whose style the cell takes: where a group cell inherits,
// the level of the row above at which the walk ended, so 0 when a detail row's text is shown.
void GroupText(const TextSource& source, const ColumnRecord& column, std::int32_t row,
               std::int32_t columnIndex, std::int32_t& level, XString& text);

}  // namespace tessera
