// Loads delimited text into columns.

#pragma once

#include <istream>
#include <span>
#include <string>
#include <string_view>

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
// stands before gets a name of its own: "COLUMN2", "NAME_2". The text is read twice: once to check it, to
// tell the types apart and to measure the columns, once to fill them; so a stream must be one that can go
// back. A fault anywhere loads nothing; it calls the text `name`. `fields` gives types for columns by name;
// each must name a column.
Loaded<CsvRows> loadCsv(std::istream& in, const std::string& name, std::span<const FieldSpec> fields = {},
                        const LoadProgress& progress = {});
// The bytes are borrowed for the call.
Loaded<CsvRows> loadCsv(std::string_view bytes, const std::string& name,
                        std::span<const FieldSpec> fields = {}, const LoadProgress& progress = {});

}  // namespace tessera
