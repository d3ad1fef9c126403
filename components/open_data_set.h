// Opens a data set from a file or a database as a form describes it.

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "components/csv_form.h"
#include "components/file_stamp.h"
#include "components/load_error.h"
#include "components/load_progress.h"
#include "components/memory_data_set.h"
#include "components/sqlite_loader.h"
#include "components/type_guess.h"

namespace tessera {

// What must hold: either `file`, or `database` with one of `table` and `query`.
struct DataSource {
  std::string file = {};  // delimited text
  std::string database = {};
  std::string table = {};
  std::string query = {};
  std::vector<FieldSpec> fields = {};
};

struct OpenedDataSet {
  std::shared_ptr<MemoryDataSet> rows;
  DataSource source = {};
  SqliteOrigin origin = {};  // of rows from a database
  CsvForm form = {};         // of rows from a file
  FileStamp stamp = {};      // of that file, when it was read or written last
};

// Faults of the options count as faults of the source: a sort, level or subsum text that names an unknown
// column, or a subsum text that is none.
Loaded<OpenedDataSet> openDataSet(const DataSource& source, const DataSetOptions& options = {},
                                  const LoadProgress& progress = {});

// Saving would change what the source holds. A table has no order of rows, a file has.
bool hasChanges(const OpenedDataSet& opened);
// Somebody else wrote, or took away, the file that the rows came from; saving would undo that.
bool isStale(const OpenedDataSet& opened);
// Writes the changes back to where the rows came from.
std::optional<LoadError> saveDataSet(OpenedDataSet& opened);

}  // namespace tessera
