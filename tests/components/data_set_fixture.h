// What the tests of the components share: rows from text, and a subscriber that notes.

#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "components/csv_loader.h"
#include "components/memory_data_set.h"
#include "tests/support/temp_folder.h"

namespace tessera::testing {

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

// "set ROW COLUMN TEXT", "name ROW COLUMN TEXT" with the column's name, "sort KEYS"; the others take a
// number.
inline void obey(MemoryDataSet& rows, const std::string& script) {
  std::istringstream commands(script);
  for (std::string command; std::getline(commands, command, ';');) {
    std::istringstream in(command);
    std::string word, column, text;
    std::int32_t row = 0;
    in >> word;
    if (word == "sort") {
      std::getline(in.ignore(), text);
      rows.SetSortExpr(wide(text));
      rows.ApplySort();
      continue;
    }
    if (word == "groups") in >> text, rows.setSubsumExpr(text);
    if (word == "commit") rows.CommitRows();
    if (word == "accept") rows.acceptChanges();
    in >> row;
    if (word == "insert") rows.InsertRow(row);
    if (word == "delete") rows.DeleteRow(row);
    if (word == "current") rows.SetCurrentRow(row);
    if (word == "select") rows.SetRowSelected(row, 1);
    in >> column;
    std::getline(in.ignore(), text);
    if (word == "set") rows.SetText(row, std::stoi(column), wide(text));
    if (word == "name") rows.SetTextByName(row, wide(column), wide(text));
  }
}

// Notes every call as "Name(arguments)", some by shorter names, and then lets a test act inside it.
class NotingSink : public DataSetNotifications {
 public:
  NotingSink() = default;
  // Subscribed as long as it lives; `rows` must live longer.
  explicit NotingSink(DataSetControl& rows) : rows_(&rows) { rows.Advise(this, 1); }
  ~NotingSink() override {
    if (rows_) rows_->Unadvise(this);
  }

  std::string taken() { return std::exchange(notes_, {}); }

  std::function<void(const std::string&)> inside;
  bool allow = true;

  HResult SortReset() override { return note("SortReset"); }
  HResult StructureChanged(std::int32_t value) override { return note("StructureChanged", {value}); }
  HResult RowsAdded(std::int32_t count) override { return note("RowsAdded", {count}); }
  HResult DataChanged(std::int32_t value) override { return note("DataChanged", {value}); }
  HResult CanChange(std::int32_t, VariantBool& allowed) override {
    allowed = allow ? VARIANT_TRUE : VARIANT_FALSE;
    if (inside) inside("CanChange");
    return S_OK;
  }
  HResult CurrentRowChanged(std::int32_t row) override { return note("Current", {row}); }
  HResult RowsReset() override { return note("RowsReset"); }
  HResult Reserved(std::int32_t value) override { return note("Reserved", {value}); }
  HResult RowInserted(std::int32_t row) override { return note("Inserted", {row}); }
  HResult RowDeleted(std::int32_t row) override { return note("Deleted", {row}); }
  HResult CellChanged(std::int32_t row, std::int32_t column) override { return note("Cell", {row, column}); }
  HResult SourceClosing(VariantBool flag) override { return note("SourceClosing", {flag}); }

 private:
  HResult note(std::string text, const std::vector<std::int32_t>& arguments = {}) {
    for (const std::int32_t each : arguments) text += (text.back() > '9' ? "(" : ",") + std::to_string(each);
    if (!arguments.empty()) text += ")";
    notes_ += (notes_.empty() ? "" : " ") + text;
    if (inside) inside(text);
    return S_OK;
  }

  DataSetControl* rows_ = nullptr;
  std::string notes_;
};

}  // namespace tessera::testing
