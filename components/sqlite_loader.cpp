#include "components/sqlite_loader.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <unordered_set>
#include <utility>

#include "components/sqlite_handle.h"
#include "shared/utf.h"

namespace tessera {
namespace {

struct DeclaredType {
  std::int32_t type = 0;    // a column type; 0: tells nothing
  std::int32_t scale = -1;  // -1: none given
};

struct TypeWord {
  std::string_view part;
  std::int32_t type;
};
// The first that occurs in the declared type counts.
constexpr TypeWord declaredWords[] = {
    {"BIGINT", columnLong},  {"INT8", columnLong},   {"INT", columnInteger},  {"CHAR", columnText},
    {"CLOB", columnText},    {"TEXT", columnText},   {"REAL", columnDecimal}, {"FLOA", columnDecimal},
    {"DOUB", columnDecimal}, {"DEC", columnDecimal}, {"NUM", columnDecimal},
};

DeclaredType parseDeclared(std::string_view declared) {
  std::string upper(declared);
  std::transform(upper.begin(), upper.end(), upper.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
  DeclaredType result;
  for (const TypeWord& word : declaredWords) {
    if (upper.find(word.part) == std::string::npos) continue;
    result.type = word.type;
    break;
  }
  const std::size_t comma = upper.find(',', std::min(upper.find('('), upper.size()));
  if (result.type != columnDecimal || comma == std::string::npos) return result;
  const std::size_t digit = std::min(upper.find_first_not_of(' ', comma + 1), upper.size());
  std::from_chars(upper.data() + digit, upper.data() + upper.size(), result.scale);
  return result;
}

class SqliteSource {
 public:
  SqliteSource(const std::string& file, std::span<const FieldSpec> fields, const LoadProgress& progress)
      : file_(file), fields_(fields), progress_(progress) {}

  Loaded<SqliteRows> load(const std::string& table, const std::string& query);

 private:
  using Fault = std::optional<LoadError>;

  LoadError error(std::string reason) const { return {file_, 0, what_ + std::move(reason)}; }
  bool goesOn(std::int32_t record, std::int32_t total) {
    constexpr std::int32_t step = 0xFFF;
    if (!progress_ || (record & step) != 0) return true;
    told_ = {record, total};
    return progress_(record, total);
  }
  LoadError faultOf(int status) const {
    return error(status == SQLITE_INTERRUPT ? cancelledReason : database_.fault());
  }
  Fault findKeys(const std::string& table, SqliteOrigin& origin);
  Fault prepare(const std::string& sql, std::size_t keyCount);
  Fault survey();
  bool surveyCell(int column);
  ColumnFormat formatOf(int column) const;
  Fault fill(ColumnStore& store);
  bool fillCell(Column& column, int index);

  const std::string& file_;
  std::span<const FieldSpec> fields_;
  const LoadProgress& progress_;
  std::string what_;  // "table NAME: " or "query: "
  SqliteDatabase database_;
  SqliteStatement select_;
  int visible_ = 0;
  std::vector<TypeGuess> guesses_;
  std::int32_t records_ = 0;
  std::pair<std::int32_t, std::int32_t> told_;  // what the progress was told last: rows, and of how many
};

// A table without row numbers is known by its primary key; a view has nothing to be known by.
SqliteSource::Fault SqliteSource::findKeys(const std::string& table, SqliteOrigin& origin) {
  SqliteStatement kind = database_.prepare(
      "SELECT type, wr, name FROM pragma_table_list WHERE schema = 'main' AND name = ?1 COLLATE NOCASE");
  if (!kind) return error(database_.fault());
  kind.bindText(0, table);
  const int status = kind.step();
  if (status == SQLITE_DONE) return error("there is no such table");
  if (status != SQLITE_ROW) return error(database_.fault());
  if (kind.text(0) == "view") return std::nullopt;
  origin.table = kind.text(2);
  SqliteStatement columns = database_.prepare("SELECT name, pk FROM pragma_table_info(?1) ORDER BY pk");
  if (!columns) return error(database_.fault());
  columns.bindText(0, table);
  std::vector<std::string> keys;
  std::unordered_set<std::string> names;
  while (columns.step() == SQLITE_ROW) {
    std::string name(columns.text(0));
    if (columns.whole(1) > 0) keys.push_back(quotedName(name));
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    names.insert(std::move(name));
  }
  if (kind.whole(1) != 0) {
    origin.keys = std::move(keys);
    return std::nullopt;
  }
  // A column may hide the row number behind its own name.
  for (const char* name : {"_rowid_", "rowid", "oid"}) {
    if (names.contains(name)) continue;
    origin.keys = {name};
    return std::nullopt;
  }
  origin.table.clear();
  return std::nullopt;
}

SqliteSource::Fault SqliteSource::prepare(const std::string& sql, std::size_t keyCount) {
  select_ = database_.prepare(sql);
  if (!select_) return error(database_.fault());
  visible_ = select_.columns() - static_cast<int>(keyCount);
  if (visible_ <= 0) return error("it gives no columns");
  std::unordered_set<std::string_view> names;
  for (int c = 0; c < select_.columns(); ++c) {
    const std::string_view name = select_.name(c);
    if (c < visible_ && !names.insert(name).second)
      return error("two columns are named " + std::string(name));
    const auto field = std::find_if(fields_.begin(), fields_.end(),
                                    [&](const FieldSpec& spec) { return spec.name == name; });
    guesses_.push_back(c < visible_ && field != fields_.end() ? TypeGuess(*field) : TypeGuess());
  }
  for (const FieldSpec& field : fields_)
    if (!names.contains(field.name)) return error("there is no column " + field.name);
  return std::nullopt;
}

bool SqliteSource::surveyCell(int column) {
  TypeGuess& guess = guesses_[static_cast<std::size_t>(column)];
  switch (select_.type(column)) {
    case SQLITE_INTEGER:
      return guess.addWhole(select_.whole(column));
    case SQLITE_FLOAT:
      return guess.addReal(select_.real(column));
    case SQLITE_TEXT:
      return guess.addText(select_.text(column));
    default:
      return true;
  }
}

SqliteSource::Fault SqliteSource::survey() {
  int status = select_.step();
  for (; status == SQLITE_ROW; status = select_.step()) {
    if (records_ == std::numeric_limits<std::int32_t>::max()) return error("too many rows");
    ++records_;
    if (!goesOn(records_, 0)) return error(cancelledReason);
    for (int c = 0; c < select_.columns(); ++c) {
      if (surveyCell(c)) continue;
      const ColumnFormat format = guesses_[static_cast<std::size_t>(c)].format(XString());
      return error("row " + std::to_string(records_) + ": \"" + std::string(select_.text(c)) +
                   "\" in column " + std::string(select_.name(c)) + " is not " +
                   std::string(columnTypeName(format.type)));
    }
  }
  if (status != SQLITE_DONE) return faultOf(status);
  told_ = {0, records_};
  select_.reset();
  return std::nullopt;
}

ColumnFormat SqliteSource::formatOf(int column) const {
  const TypeGuess& guess = guesses_[static_cast<std::size_t>(column)];
  ColumnFormat format = guess.format(XString::fromNarrow(select_.name(column)));
  const DeclaredType declared = parseDeclared(select_.declaredType(column));
  if (column >= visible_) {
    // Row numbers to come may be greater than those that are there.
    const bool whole = format.type == columnInteger || (guess.isOpen() && declared.type == columnInteger);
    if (whole) format.type = columnLong;
    return format;
  }
  if (guess.isGiven() || declared.type == 0) return format;
  const bool decimalWithScale = declared.type == columnDecimal && declared.scale > 0;
  if (guess.isOpen())
    format.type = declared.type;
  else if (format.type == columnInteger && declared.type == columnLong)
    format.type = columnLong;
  else if (format.type == columnInteger && decimalWithScale)
    format.type = columnDecimal;
  if (format.type == columnDecimal && decimalWithScale) format.scale = declared.scale;
  return format;
}

bool SqliteSource::fillCell(Column& column, int index) {
  const int type = select_.type(index);
  if (type == SQLITE_NULL || type == SQLITE_BLOB) return column.appendEmpty(), true;
  if (column.isText()) {
    const std::string_view text = select_.text(index);
    column.appendText(isUtf8(text) ? text : utf8FromUtf16(utf16FromUtf8(text)));
    return true;
  }
  if (type == SQLITE_INTEGER && column.isWhole()) return column.appendWhole(select_.whole(index)), true;
  if (type != SQLITE_TEXT && !column.isWhole()) return column.appendReal(select_.real(index)), true;
  return appendCell(column, select_.text(index));
}

SqliteSource::Fault SqliteSource::fill(ColumnStore& store) {
  for (int c = 0; c < select_.columns(); ++c) {
    store.addColumn(formatOf(c), c >= visible_);
    store.column(c).reserve(static_cast<std::size_t>(records_),
                            guesses_[static_cast<std::size_t>(c)].textBytes());
  }
  int status = select_.step();
  for (; status == SQLITE_ROW; status = select_.step()) {
    for (int c = 0; c < select_.columns(); ++c)
      if (!fillCell(store.column(c), c)) return error("it changed while it was read");
    store.finishRecord();
    if (!goesOn(store.recordCount(), records_)) return error(cancelledReason);
  }
  if (status != SQLITE_DONE) return faultOf(status);
  return std::nullopt;
}

Loaded<SqliteRows> SqliteSource::load(const std::string& table, const std::string& query) {
  what_ = table.empty() ? "query: " : "table " + table + ": ";
  if (!database_.open(file_, false)) return LoadError{file_, 0, database_.fault()};
  // A query may work for long before its first row, and between two.
  if (progress_) database_.askWhileWorking([this] { return progress_(told_.first, told_.second); });
  // Both readings see the same state.
  if (!database_.run("BEGIN")) return error(database_.fault());
  SqliteRows rows;
  rows.origin.file = file_;
  std::string sql = query;
  if (!table.empty()) {
    if (auto fault = findKeys(table, rows.origin)) return *std::move(fault);
    sql = "SELECT *";
    for (const std::string& key : rows.origin.keys) sql += ", " + key;
    sql += " FROM " + quotedName(table);
  }
  if (auto fault = prepare(sql, rows.origin.keys.size())) return *std::move(fault);
  if (auto fault = survey()) return *std::move(fault);
  if (auto fault = fill(rows.store)) return *std::move(fault);
  return Loaded<SqliteRows>(std::move(rows));
}

}  // namespace

Loaded<SqliteRows> loadSqliteTable(const std::string& file, const std::string& table,
                                   std::span<const FieldSpec> fields, const LoadProgress& progress) {
  return SqliteSource(file, fields, progress).load(table, {});
}

Loaded<SqliteRows> loadSqliteQuery(const std::string& file, const std::string& query,
                                   std::span<const FieldSpec> fields, const LoadProgress& progress) {
  return SqliteSource(file, fields, progress).load({}, query);
}

}  // namespace tessera
