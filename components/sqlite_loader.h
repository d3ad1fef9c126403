// Loads a table or a query of an SQLite database into columns.

#pragma once

#include <span>
#include <string>
#include <vector>

#include "components/column_store.h"
#include "components/load_error.h"
#include "components/load_progress.h"
#include "components/type_guess.h"

namespace tessera {

// Where rows came from and how each is known there.
struct SqliteOrigin {
  std::string file;
  std::string table;  // empty: rows of a query or a view, which cannot be written back
  // What the hidden columns hold: the row number, or the primary key of a table without row numbers.
  std::vector<std::string> keys;
};

struct SqliteRows {
  ColumnStore store;
  SqliteOrigin origin;
};

// Columns take the type that all of their values fit; the declared type decides for columns without values
// and gives a decimal its scale. Blobs are empty cells. `fields` gives types for columns by name.
Loaded<SqliteRows> loadSqliteTable(const std::string& file, const std::string& table,
                                   std::span<const FieldSpec> fields = {}, const LoadProgress& progress = {});
Loaded<SqliteRows> loadSqliteQuery(const std::string& file, const std::string& query,
                                   std::span<const FieldSpec> fields = {}, const LoadProgress& progress = {});

}  // namespace tessera
