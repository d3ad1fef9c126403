// Cells that flip in place: check marks and radio buttons.

#pragma once

#include <cstdint>

#include <tessera/xvalue.h>

#include "config/column_record.h"
#include "interaction/grid_parts.h"
#include "shared/grid_services.h"

namespace tessera {

// What a check mark's value becomes. By mouse only a text that says false becomes true, by key only one that
// says true becomes false. Other types than texts, 32- and 64-bit integers and real numbers stay.
XValue checkedByMouse(const XValue& value);
XValue checkedByKey(const XValue& value);

// A text is set unless it is drawn as off, a number unless it is 0.
bool isRadioSet(const XValue& value);
// What the set cell of a column holds, in the type of the value that it had.
XValue radioSetValue(const XValue& value);

using CheckRule = XValue (*)(const XValue& value);
void flipCheck(GridParts& parts, const ColumnRecord& column, std::int32_t row, CheckRule rule);

// The cell becomes the one set cell of its column: every other row gets a 0. A cell that is set already
// stays.
void setRadio(GridParts& parts, const GridServices& services, const ColumnRecord& column, std::int32_t row);

}  // namespace tessera
