#include "components/sqlite_handle.h"

#include <utility>

namespace tessera {
namespace {

constexpr int busyMilliseconds = 5000;
constexpr int stepsBetweenQuestions = 100'000;  // of the database's machine

int askToStop(void* goesOn) { return (*static_cast<std::function<bool()>*>(goesOn))() ? 0 : 1; }

}  // namespace

bool SqliteDatabase::open(const std::string& file, bool writable) {
  sqlite3* handle = nullptr;
  const int mode = writable ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY;
  const int status = sqlite3_open_v2(file.c_str(), &handle, mode, nullptr);
  handle_.reset(handle);
  if (status != SQLITE_OK) return false;
  sqlite3_busy_timeout(handle, busyMilliseconds);
  return true;
}

bool SqliteDatabase::run(const std::string& sql) {
  return sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

SqliteStatement SqliteDatabase::prepare(const std::string& sql) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(handle_.get(), sql.c_str(), static_cast<int>(sql.size()), &statement, nullptr);
  return SqliteStatement(statement);
}

void SqliteDatabase::askWhileWorking(std::function<bool()> goesOn) {
  goesOn_ = std::make_unique<std::function<bool()>>(std::move(goesOn));
  sqlite3_progress_handler(handle_.get(), stepsBetweenQuestions, askToStop, goesOn_.get());
}

std::string quotedName(std::string_view name) {
  std::string quoted = "\"";
  for (const char c : name) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

}  // namespace tessera
