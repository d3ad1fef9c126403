// Loads a file of delimited text into columns.

#pragma once

#include <span>
#include <string>

#include "components/column_store.h"
#include "components/csv_form.h"
#include "components/load_error.h"
#include "components/load_progress.h"
#include "components/type_guess.h"

namespace tessera {

struct CsvRows {
  ColumnStore store;
  CsvForm form;
};

// UTF-8 with or without a mark, a header line with the column names; a column without a name or with one that
// stands before gets a name of its own: "COLUMN2", "NAME_2". The file is read twice: once to check it, to
// tell the types apart and to measure the columns, once to fill them. A fault anywhere loads nothing.
// `fields` gives types for columns by name; each must name a column.
Loaded<CsvRows> loadCsv(const std::string& path, std::span<const FieldSpec> fields = {},
                        const LoadProgress& progress = {});

}  // namespace tessera
