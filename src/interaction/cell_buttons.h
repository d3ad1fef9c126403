// Where the parts of a cell are that a press can meet.

#pragma once

#include "config/column_record.h"
#include "shared/rect.h"

namespace tessera {

// The button at the right end of a popup, combo or lookup cell; empty for a column that has none.
Rect buttonRect(const ColumnRecord& column, const Rect& cell);

// The mark of a check or radio cell; empty for a column that has none. With a label it never stands in the
// middle.
Rect markRect(const ColumnRecord& column, const Rect& cell);

}  // namespace tessera
