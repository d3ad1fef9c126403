// The state of a grid as lines of text.

#pragma once

#include <string>
#include <vector>

#include "backends/headless/headless_window.h"
#include "control/tessera.h"

namespace tessera {

// Cost the page, never all rows.
std::vector<std::string> describeState(const GridParts& parts);
std::vector<std::string> describeColumns(const ColumnList& columns);
std::vector<std::string> describeBars(const HeadlessWindow& window);

std::string rectText(const Rect& rect);
// The id as it is when it is one word, else in quotes; "-" for no column.
std::string columnName(const ColumnRecord* column);
// The first column of exactly this id, null when there is none.
const ColumnRecord* findColumn(const ColumnList& columns, const XString& id);

}  // namespace tessera
