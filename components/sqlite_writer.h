// Writes the changes of a data set back to its SQLite table.

#pragma once

#include <optional>

#include "components/load_error.h"
#include "components/memory_data_set.h"
#include "components/sqlite_loader.h"

namespace tessera {

// Deletions, then changed cells, then new rows, all in one transaction with foreign keys enforced. Of a
// changed row only the cells that were written to are touched, of a new row only those that are not empty, so
// that defaults apply; what the table made of them comes back into the rows. Any fault, also a row that is no
// longer in the table, leaves table and data set as they were. On success every row counts as unchanged.
// `rows` must hold the columns that were loaded together with `origin`.
std::optional<LoadError> saveSqlite(MemoryDataSet& rows, const SqliteOrigin& origin);

}  // namespace tessera
