#include "components/sqlite_writer.h"

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "components/sqlite_handle.h"

namespace tessera {
namespace {

class SqliteSave {
 public:
  SqliteSave(MemoryDataSet& rows, const SqliteOrigin& origin)
      : rows_(rows), store_(rows.store()), origin_(origin), table_(quotedName(origin.table)) {}

  std::optional<LoadError> run();

 private:
  using Fault = std::optional<LoadError>;
  using Columns = std::vector<std::int32_t>;

  // A row as the table has it now, to be taken over once all is committed.
  struct Echo {
    std::int32_t record;
    std::vector<XValue> cells;  // of all columns, hidden ones included
  };

  LoadError error(const std::string& reason) const {
    return {origin_.file, 0, "table " + origin_.table + ": " + reason};
  }
  Fault writeAll();
  Fault deleteRecords();
  Fault updateRow(std::int32_t row, std::int32_t record);
  Fault insertRow(std::int32_t row, std::int32_t record);
  Fault execute(const std::string& sql, const Columns& columns, std::int32_t record, bool byKey,
                const std::string& who);
  void bindCell(SqliteStatement& statement, int index, std::int32_t column, std::int32_t record);
  void readEcho(const SqliteStatement& statement, std::int32_t record);
  std::string condition() const;
  std::string returning() const;
  void takeEchoes();

  MemoryDataSet& rows_;
  ColumnStore& store_;
  const SqliteOrigin& origin_;
  std::string table_;
  SqliteDatabase database_;
  std::unordered_map<std::string, SqliteStatement> statements_;
  std::vector<Echo> echoes_;
};

std::string nameOf(const ColumnStore& store, std::int32_t column) {
  return quotedName(store.column(column).format().name.toUtf8());
}

std::string SqliteSave::condition() const {
  std::string text;
  for (const std::string& key : origin_.keys) text += (text.empty() ? " WHERE " : " AND ") + key + " = ?";
  return text;
}

std::string SqliteSave::returning() const {
  std::string text;
  for (std::int32_t c = 0; c < store_.columnCount(); ++c)
    text += (c > 0 ? ", " : " RETURNING ") + nameOf(store_, c);
  for (const std::string& key : origin_.keys) text += ", " + key;
  return text;
}

void SqliteSave::bindCell(SqliteStatement& statement, int index, std::int32_t column, std::int32_t record) {
  const Column& cells = store_.column(column);
  if (cells.isEmpty(record)) return statement.bindNull(index);
  if (cells.isText()) return statement.bindText(index, cells.text(record));
  if (cells.isWhole()) return statement.bindWhole(index, cells.whole(record));
  statement.bindReal(index, cells.real(record));
}

void SqliteSave::readEcho(const SqliteStatement& statement, std::int32_t record) {
  Echo echo{record, std::vector<XValue>(static_cast<std::size_t>(statement.columns()))};
  for (int c = 0; c < statement.columns(); ++c) {
    XValue& cell = echo.cells[static_cast<std::size_t>(c)];
    switch (statement.type(c)) {
      case SQLITE_INTEGER:
        cell.setInt64(statement.whole(c));
        break;
      case SQLITE_FLOAT:
        cell.setDouble(statement.real(c));
        break;
      case SQLITE_TEXT:
        cell.setText(XString::fromNarrow(statement.text(c)));
        break;
      default:
        break;
    }
  }
  echoes_.push_back(std::move(echo));
}

// Binds the columns' cells and, `byKey`, the record's key; the statement must give exactly one row back.
SqliteSave::Fault SqliteSave::execute(const std::string& sql, const Columns& columns, std::int32_t record,
                                      bool byKey, const std::string& who) {
  SqliteStatement& statement = statements_[sql];
  if (!statement) statement = database_.prepare(sql);
  if (!statement) return error(database_.fault());
  int index = 0;
  for (const std::int32_t column : columns) bindCell(statement, index++, column, record);
  for (std::int32_t key = store_.columnCount(); byKey && key < store_.allColumnCount(); ++key)
    bindCell(statement, index++, key, record);
  int status = statement.step();
  const bool found = status == SQLITE_ROW;
  if (found) {
    readEcho(statement, record);
    status = statement.step();
  }
  Fault fault;
  if (status != SQLITE_DONE)
    fault = error(who + database_.fault());
  else if (!found)
    fault = error(who + "it is no longer in the table");
  statement.reset();
  return fault;
}

SqliteSave::Fault SqliteSave::deleteRecords() {
  const std::string sql = "DELETE FROM " + table_ + condition() + returning();
  for (std::int32_t record = 0; record < store_.recordCount(); ++record) {
    const std::int32_t status = rows_.recordStatus(record);
    if (status != rowDeleted && status != rowGone) continue;
    if (auto fault = execute(sql, {}, record, true, "a deleted row: ")) return fault;
  }
  // What was deleted is not taken over.
  echoes_.clear();
  return std::nullopt;
}

SqliteSave::Fault SqliteSave::updateRow(std::int32_t row, std::int32_t record) {
  Columns columns;
  std::string sql;
  for (std::int32_t c = 0; c < store_.columnCount(); ++c) {
    if (!store_.column(c).isMarked(record)) continue;
    sql += (columns.empty() ? "" : ", ") + nameOf(store_, c) + " = ?";
    columns.push_back(c);
  }
  if (columns.empty()) return std::nullopt;
  return execute("UPDATE " + table_ + " SET " + sql + condition() + returning(), columns, record, true,
                 "row " + std::to_string(row) + ": ");
}

SqliteSave::Fault SqliteSave::insertRow(std::int32_t row, std::int32_t record) {
  Columns columns;
  std::string names;
  std::string marks;
  for (std::int32_t c = 0; c < store_.columnCount(); ++c) {
    if (store_.column(c).isEmpty(record)) continue;
    names += (columns.empty() ? "" : ", ") + nameOf(store_, c);
    marks += columns.empty() ? "?" : ", ?";
    columns.push_back(c);
  }
  const std::string cells = columns.empty() ? " DEFAULT VALUES" : " (" + names + ") VALUES (" + marks + ")";
  return execute("INSERT INTO " + table_ + cells + returning(), columns, record, false,
                 "row " + std::to_string(row) + ": ");
}

SqliteSave::Fault SqliteSave::writeAll() {
  if (auto fault = deleteRecords()) return fault;
  for (const std::int32_t wanted : {rowUpdated, rowInserted}) {
    for (std::int32_t row = 1; row <= rows_.rowCount(); ++row) {
      const std::int32_t record = rows_.entryAt(row);
      if (record < 0 || rows_.recordStatus(record) != wanted) continue;
      auto fault = wanted == rowUpdated ? updateRow(row, record) : insertRow(row, record);
      if (fault) return fault;
    }
  }
  return std::nullopt;
}

void SqliteSave::takeEchoes() {
  for (const Echo& echo : echoes_)
    for (std::int32_t c = 0; c < store_.allColumnCount(); ++c)
      store_.column(c).set(echo.record, echo.cells[static_cast<std::size_t>(c)]);
}

std::optional<LoadError> SqliteSave::run() {
  if (origin_.table.empty()) return LoadError{origin_.file, 0, "the rows do not come from a table"};
  if (!database_.open(origin_.file, true)) return error(database_.fault());
  if (!database_.run("PRAGMA foreign_keys = ON") || !database_.run("BEGIN IMMEDIATE"))
    return error(database_.fault());
  Fault fault = writeAll();
  statements_.clear();
  if (!fault && !database_.run("COMMIT")) fault = error(database_.fault());
  if (fault) {
    database_.run("ROLLBACK");
    return fault;
  }
  takeEchoes();
  rows_.acceptChanges();
  return std::nullopt;
}

}  // namespace

std::optional<LoadError> saveSqlite(MemoryDataSet& rows, const SqliteOrigin& origin) {
  return SqliteSave(rows, origin).run();
}

}  // namespace tessera
