// The texts that the grid's cells show.

#pragma once

#include <cstdint>

#include "binding/data_link.h"
#include "config/column_record.h"
#include "rows/row_tree.h"

namespace tessera {

// Buffers that are used again from cell to cell, so that warm readers allocate nothing.
struct TextScratch {
  XValue value;
  XString code;  // what a combo or lookup cell translates
  XString key;   // of the first row of a run of merged cells
  XString part;  // one column's share of a key
};

// Where texts come from. Every thread brings its own `eval` and `scratch`.
struct TextSource {
  const DataLink& link;
  EvalState& eval;
  TextScratch& scratch;
};

// The text of a cell on a data row, the row of `eval` being that row; `columnIndex` is the dataset's number
// of the column. Check and radio cells give the bare value that their mark depends on.
void cellText(const TextSource& source, const ColumnRecord& column, std::int32_t row,
              std::int32_t columnIndex, XString& text);

// What the automation property GetText can ask for.
enum class TextKind : std::int32_t { Header = 2, Cell = 3, Group = 4, Summary = 5 };

// The text of `columnId` of the given kind for dataset row `row`, which becomes the row of `source.eval`.
// False, with `text` left alone, for a column that is not there and for any other kind. The first column
// whose id matches without case must also match exactly.
bool queryText(const TextSource& source, const ColumnList& columns, const RowTree& rows,
               const XString& columnId, std::int32_t row, std::int32_t kind, XString& text);

}  // namespace tessera
