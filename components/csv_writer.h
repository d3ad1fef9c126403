// Writes the data rows of a data set as delimited text.

#pragma once

#include <optional>
#include <string>

#include "components/csv_form.h"
#include "components/load_error.h"
#include "components/memory_data_set.h"

namespace tessera {

// A header line and the rows in their present order, deleted rows and the data set's own subtotal rows left
// out. UTF-8, quotes where they are needed; decimals with the scale's digits, or all they need to
// read back the same. A fault leaves the old file as it was.
std::optional<LoadError> writeCsv(const MemoryDataSet& rows, const std::string& path,
                                  const CsvForm& form = {});

// The same, and the rows count as unchanged afterwards.
std::optional<LoadError> saveCsv(MemoryDataSet& rows, const std::string& path, const CsvForm& form = {});

}  // namespace tessera
