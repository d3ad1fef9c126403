#include "tools/tessera/open_form.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string_view>

#include "backends/native/pixbuf_picture_loader.h"
#include "backends/native/xml_document_reader.h"
#include "components/sqlite_loader.h"
#include "tools/tessera/form_reader.h"
#include "tools/tessera/made_up_form.h"

namespace tessera {

namespace {

enum class SourceKind { Form, Text, Database };

struct Ending {
  std::string_view ending;  // lower case
  SourceKind kind;
};

constexpr Ending endings[] = {{".csv", SourceKind::Text},         {".tsv", SourceKind::Text},
                              {".txt", SourceKind::Text},         {".sqlite", SourceKind::Database},
                              {".sqlite3", SourceKind::Database}, {".db", SourceKind::Database}};

constexpr std::string_view databaseMark = "SQLite format 3";

SourceKind kindOf(const std::string& path) {
  std::string ending = std::filesystem::path(path).extension().string();
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  for (const Ending& row : endings) {
    if (row.ending == ending) return row.kind;
  }
  std::array<char, databaseMark.size()> start{};
  std::ifstream(path, std::ios::binary).read(start.data(), start.size());
  const std::string_view begin(start.data(), start.size());
  return begin == databaseMark ? SourceKind::Database : SourceKind::Form;
}

// Where the name of a database ends and that of its table begins. Both may have colons of their own: the
// first one behind a file that is there counts, without any the last one.
std::size_t colonBeforeTable(const std::string& path) {
  std::error_code error;
  for (std::size_t colon = path.find(':'); colon != std::string::npos; colon = path.find(':', colon + 1)) {
    if (std::filesystem::is_regular_file(path.substr(0, colon), error)) return colon;
  }
  return path.rfind(':');
}

// The table behind "FILE:TABLE"; a file that has the whole name goes first.
std::string splitTable(std::string& path) {
  std::error_code error;
  if (std::filesystem::exists(path, error)) return {};
  const std::size_t colon = colonBeforeTable(path);
  if (colon == std::string::npos || kindOf(path.substr(0, colon)) != SourceKind::Database) return {};
  std::string table = path.substr(colon + 1);
  path.resize(colon);
  return table;
}

Loaded<Form> describe(const std::string& name) {
  DataSource source;
  source.database = name;
  source.table = splitTable(source.database);
  switch (kindOf(source.database)) {
    case SourceKind::Text:
      return madeUpForm({.file = name});
    case SourceKind::Database:
      break;
    default: {
      XmlDocumentReader documents;
      return readForm(documents, name);
    }
  }
  if (source.table.empty()) {
    const auto tables = databaseTables(source.database);
    if (!tables) return tables.error();
    if (tables->empty()) return LoadError{source.database, 0, "the database has no table"};
    source.table = tables->front();
  }
  return madeUpForm(source);
}

}  // namespace

Loaded<std::vector<std::string>> databaseTables(const std::string& path) {
  std::vector<std::string> tables;
  if (kindOf(path) != SourceKind::Database) return tables;
  auto rows = loadSqliteQuery(path,
                              "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE "
                              "'sqlite\\_%' ESCAPE '\\' ORDER BY rowid");
  if (!rows) return rows.error();
  NumberBuffer buffer;
  for (std::int32_t row = 0; row < rows->store.recordCount(); ++row) {
    tables.emplace_back(rows->store.column(0).shown(row, buffer));
  }
  return tables;
}

Loaded<OpenedForm> openForm(const std::string& name, const LoadProgress& progress) {
  auto form = describe(name);
  if (!form) return form.error();
  OpenedForm opened{std::move(*form), {}};
  auto components = loadComponents(opened.form, decodePicture, progress);
  if (!components) return components.error();
  opened.components = std::move(*components);
  if (opened.form.isMadeUp()) {
    MemoryDataSet& data = *opened.components.dataSets.front().rows;
    opened.form.properties.push_back({"ColumnInfo", madeUpColumns(data, opened.form)});
  }
  return Loaded<OpenedForm>(std::move(opened));
}

}  // namespace tessera
