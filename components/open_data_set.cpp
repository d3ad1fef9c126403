#include "components/open_data_set.h"

#include <algorithm>
#include <utility>

#include "components/csv_file.h"
#include "components/sort_keys.h"
#include "components/sqlite_writer.h"
#include "shared/utf.h"

namespace tessera {
namespace {

// The rows with the rest of `opened` filled in.
Loaded<ColumnStore> loadRows(const DataSource& source, OpenedDataSet& opened, const LoadProgress& progress) {
  if (source.database.empty()) {
    opened.stamp = FileStamp::of(source.file);
    auto loaded = loadCsvFile(source.file, source.fields, progress);
    if (!loaded) return loaded.error();
    opened.form = std::move(loaded->form);
    return Loaded<ColumnStore>(std::move(loaded->store));
  }
  auto loaded = source.table.empty()
                    ? loadSqliteQuery(source.database, source.query, source.fields, progress)
                    : loadSqliteTable(source.database, source.table, source.fields, progress);
  if (!loaded) return loaded.error();
  opened.origin = std::move(loaded->origin);
  return Loaded<ColumnStore>(std::move(loaded->store));
}

// What is wrong with the options; empty: nothing.
std::string faultOf(const DataSetOptions& options, const ColumnStore& store) {
  if (!parseSortKeys(utf16FromUtf8(options.sort), store))
    return "the sort text \"" + options.sort + "\" names a column that does not exist";
  if (!options.level.empty() && store.find(utf16FromUtf8(options.level)) < 0)
    return "there is no level column " + options.level;
  if (options.subsum.empty()) return {};
  const auto keys = parseSubsum(utf16FromUtf8(options.subsum), store);
  if (keys.empty()) return "\"" + options.subsum + "\" is no list of groups";
  const bool known =
      std::all_of(keys.begin(), keys.end(), [](const GroupKey& key) { return key.column >= 0; });
  return known ? std::string() : "the groups \"" + options.subsum + "\" name a column that does not exist";
}

bool isFile(const OpenedDataSet& opened) { return opened.source.database.empty(); }

}  // namespace

Loaded<OpenedDataSet> openDataSet(const DataSource& source, const DataSetOptions& options,
                                  const LoadProgress& progress) {
  OpenedDataSet opened;
  opened.source = source;
  auto store = loadRows(source, opened, progress);
  if (!store) return store.error();
  const std::string fault = faultOf(options, *store);
  if (!fault.empty()) return LoadError{source.database.empty() ? source.file : source.database, 0, fault};
  opened.rows = std::make_shared<MemoryDataSet>(std::move(*store), options);
  return Loaded<OpenedDataSet>(std::move(opened));
}

bool hasChanges(const OpenedDataSet& opened) {
  return opened.rows->isModified() || (isFile(opened) && opened.rows->isReordered());
}

bool isStale(const OpenedDataSet& opened) {
  return isFile(opened) && FileStamp::of(opened.source.file) != opened.stamp;
}

std::optional<LoadError> saveDataSet(OpenedDataSet& opened) {
  if (!isFile(opened)) return saveSqlite(*opened.rows, opened.origin);
  auto fault = saveCsvFile(*opened.rows, opened.source.file, opened.form);
  if (!fault) opened.stamp = FileStamp::of(opened.source.file);
  return fault;
}

}  // namespace tessera
