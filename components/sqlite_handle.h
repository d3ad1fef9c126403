// Owners of an SQLite connection and its statements.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <sqlite3.h>
#include <string>
#include <string_view>

namespace tessera {

class SqliteStatement;

// Every call that fails leaves its reason in fault().
class SqliteDatabase {
 public:
  // The file must exist.
  bool open(const std::string& file, bool writable);
  bool run(const std::string& sql);
  SqliteStatement prepare(const std::string& sql);
  // Asks every few milliseconds of a statement's work; false ends the statement with SQLITE_INTERRUPT.
  void askWhileWorking(std::function<bool()> goesOn);
  std::string fault() const { return handle_ ? sqlite3_errmsg(handle_.get()) : "out of memory"; }

 private:
  struct Close {
    void operator()(sqlite3* handle) const { sqlite3_close(handle); }
  };
  std::unique_ptr<std::function<bool()>> goesOn_;  // of a fixed address
  std::unique_ptr<sqlite3, Close> handle_;
};

// Parameters and columns are numbered from 0. A statement must not outlive its database.
class SqliteStatement {
 public:
  SqliteStatement() = default;
  explicit SqliteStatement(sqlite3_stmt* handle) : handle_(handle) {}

  explicit operator bool() const { return handle_ != nullptr; }
  // SQLITE_ROW, SQLITE_DONE or the code of a fault.
  int step() { return sqlite3_step(handle_.get()); }
  void reset() { sqlite3_reset(handle_.get()); }

  int columns() const { return sqlite3_column_count(handle_.get()); }
  std::string_view name(int column) const { return sqlite3_column_name(handle_.get(), column); }
  std::string_view declaredType(int column) const {
    const char* type = sqlite3_column_decltype(handle_.get(), column);
    return type ? type : "";
  }
  int type(int column) const { return sqlite3_column_type(handle_.get(), column); }
  std::int64_t whole(int column) const { return sqlite3_column_int64(handle_.get(), column); }
  double real(int column) const { return sqlite3_column_double(handle_.get(), column); }
  std::string_view text(int column) const {
    const void* bytes = sqlite3_column_text(handle_.get(), column);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(handle_.get(), column));
    return bytes ? std::string_view(static_cast<const char*>(bytes), size) : std::string_view();
  }

  void bindNull(int index) { sqlite3_bind_null(handle_.get(), index + 1); }
  void bindWhole(int index, std::int64_t value) { sqlite3_bind_int64(handle_.get(), index + 1, value); }
  void bindReal(int index, double value) { sqlite3_bind_double(handle_.get(), index + 1, value); }
  void bindText(int index, std::string_view text) {
    sqlite3_bind_text64(handle_.get(), index + 1, text.empty() ? "" : text.data(), text.size(),
                        SQLITE_TRANSIENT, SQLITE_UTF8);
  }

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* handle) const { sqlite3_finalize(handle); }
  };
  std::unique_ptr<sqlite3_stmt, Finalize> handle_;
};

// The name as an SQL identifier.
std::string quotedName(std::string_view name);

}  // namespace tessera
