// What the tests of the components share: folders that go away, rows from text, and a subscriber that notes.

#pragma once

#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "components/csv_loader.h"
#include "components/memory_data_set.h"

namespace tessera::testing {

class TempFolder {
 public:
  TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tessera-XXXXXX").string();
    path_ = ::mkdtemp(pattern.data());
  }
  ~TempFolder() { std::filesystem::remove_all(path_); }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::string file(std::string_view name) const { return (path_ / name).string(); }
  std::string write(std::string_view name, std::string_view bytes) const {
    std::ofstream(file(name), std::ios::binary) << bytes;
    return file(name);
  }
  std::string read(std::string_view name) const {
    std::ifstream in(file(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  std::vector<std::string> names() const {
    std::vector<std::string> all;
    for (const auto& entry : std::filesystem::directory_iterator(path_))
      all.push_back(entry.path().filename().string());
    return all;
  }

 private:
  std::filesystem::path path_;
};

inline ColumnStore storeOf(std::string_view csv, const std::vector<FieldSpec>& fields = {}) {
  auto loaded = loadCsv(csv, "rows", fields);
  if (loaded) return std::move(loaded->store);
  ADD_FAILURE() << loaded.error().message();
  return {};
}

inline XString wide(std::string_view text) { return XString::fromNarrow(text); }

inline std::string textAt(DataSetControl& rows, std::int32_t row, std::int32_t column) {
  XString text;
  rows.GetText(row, column, text);
  return text.toUtf8();
}

inline XValue valueAt(DataSetControl& rows, std::int32_t row, std::int32_t column) {
  XValue value;
  rows.GetValue(row, column, value);
  return value;
}

// What a question of the interface answers; the out argument must be written.
template <class... Parameters, class... Arguments>
std::int32_t answer(DataSetControl& rows, void (DataSetControl::*question)(Parameters...),
                    Arguments... arguments) {
  std::int32_t result = -77;
  (rows.*question)(arguments..., result);
  return result;
}

inline std::int32_t rowCount(DataSetControl& rows) { return answer(rows, &DataSetControl::GetRowCount); }

// The texts of one column from top to bottom: "a b c"; a row of a level above 0 as "=text".
inline std::string columnTexts(DataSetControl& rows, std::int32_t column) {
  std::string all;
  for (std::int32_t row = 1; row <= rowCount(rows); ++row) {
    if (row > 1) all += ' ';
    if (answer(rows, &DataSetControl::GetLevel, row) > 0) all += '=';
    all += textAt(rows, row, column);
  }
  return all;
}

// Notes every call as "Name(arguments)" and then lets a test act inside it.
class NotingSink : public DataSetNotifications {
 public:
  NotingSink() = default;
  // Subscribed as long as it lives; `rows` must live longer.
  explicit NotingSink(DataSetControl& rows) : rows_(&rows) { rows.Advise(this, 1); }
  ~NotingSink() override {
    if (rows_) rows_->Unadvise(this);
  }
  NotingSink(const NotingSink&) = delete;
  NotingSink& operator=(const NotingSink&) = delete;

  std::vector<std::string> notes;
  std::function<void(const std::string&)> inside;
  bool allow = true;

  std::string taken() {
    std::string all;
    for (const std::string& note : notes) all += (all.empty() ? "" : " ") + note;
    notes.clear();
    return all;
  }

  HResult SortReset() override { return note("SortReset"); }
  HResult StructureChanged(std::int32_t value) override { return note("StructureChanged", {value}); }
  HResult RowsAdded(std::int32_t count) override { return note("RowsAdded", {count}); }
  HResult DataChanged(std::int32_t value) override { return note("DataChanged", {value}); }
  HResult CanChange(std::int32_t, VariantBool& allowed) override {
    allowed = allow ? VARIANT_TRUE : VARIANT_FALSE;
    if (inside) inside("CanChange");
    return S_OK;
  }
  HResult CurrentRowChanged(std::int32_t row) override { return note("CurrentRowChanged", {row}); }
  HResult RowsReset() override { return note("RowsReset"); }
  HResult Reserved(std::int32_t value) override { return note("Reserved", {value}); }
  HResult RowInserted(std::int32_t row) override { return note("RowInserted", {row}); }
  HResult RowDeleted(std::int32_t row) override { return note("RowDeleted", {row}); }
  HResult CellChanged(std::int32_t row, std::int32_t column) override {
    return note("CellChanged", {row, column});
  }
  HResult SourceClosing(VariantBool flag) override { return note("SourceClosing", {flag}); }

 private:
  DataSetControl* rows_ = nullptr;

  HResult note(const std::string& name, std::vector<std::int32_t> arguments = {}) {
    std::string text = name;
    for (std::size_t i = 0; i < arguments.size(); ++i)
      text += (i == 0 ? "(" : ",") + std::to_string(arguments[i]);
    if (!arguments.empty()) text += ")";
    notes.push_back(text);
    if (inside) inside(text);
    return S_OK;
  }
};

}  // namespace tessera::testing
