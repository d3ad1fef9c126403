// Files of delimited text.

#pragma once

#include <optional>
#include <string>

#include "components/csv_loader.h"
#include "components/csv_writer.h"

namespace tessera {

Loaded<CsvRows> loadCsvFile(const std::string& path, std::span<const FieldSpec> fields = {},
                            const LoadProgress& progress = {});

// A fault leaves the old file as it was.
std::optional<LoadError> writeCsvFile(const MemoryDataSet& rows, const std::string& path,
                                      const CsvForm& form = {});
// The same, and the rows count as unchanged afterwards.
std::optional<LoadError> saveCsvFile(MemoryDataSet& rows, const std::string& path, const CsvForm& form = {});

}  // namespace tessera
