#include "interaction/row_numbers.h"

namespace tessera {

void renumberRows(GridParts& parts, EditorController& editors, const RowsChanged& change) {
  ++parts.numbering;
  parts.focus.renumber(change);
  parts.focus.renumber(RowsChanged::cutTo(parts.rows.rowCount()));
  editors.renumber(change);
}

}  // namespace tessera
