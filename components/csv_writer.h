// Writes the data rows of a data set as delimited text.

#pragma once

#include <functional>
#include <string_view>

#include "components/csv_form.h"
#include "components/memory_data_set.h"

namespace tessera {

// Takes the bytes block by block, in their order.
using ByteSink = std::function<void(std::string_view bytes)>;

// A header line and the rows in their present order, deleted rows and the data set's own subtotal rows left
// out. UTF-8, quotes where they are needed; decimals with the scale's digits, or all they need to
// read back the same.
void writeCsv(const MemoryDataSet& rows, const ByteSink& sink, const CsvForm& form = {});

}  // namespace tessera
