#include "components/csv_writer.h"

#include <string>

namespace tessera {
namespace {

constexpr std::size_t blockSize = std::size_t{1} << 18;

class CsvOutput {
 public:
  CsvOutput(const ByteSink& sink, const CsvForm& form)
      : sink_(sink), delimiter_(form.delimiter), lineEnd_(form.carriageReturns ? "\r\n" : "\n") {
    const char special[] = {form.delimiter, '"', '\n', '\r', '\0'};
    special_ = special;
    if (form.byteOrderMark) block_ = "\xEF\xBB\xBF";
  }

  void field(std::string_view text) {
    if (fields_++ > 0) block_ += delimiter_;
    text.find_first_of(special_) == std::string_view::npos ? void(block_ += text) : quote(text);
    onlyEmpty_ = fields_ == 1 && text.empty();
  }
  void endLine() {
    // A blank line would be no record to many readers.
    if (onlyEmpty_) block_ += "\"\"";
    block_ += lineEnd_;
    fields_ = 0;
    if (block_.size() >= blockSize) flush();
  }
  void flush() {
    sink_(block_);
    block_.clear();
  }

 private:
  void quote(std::string_view text) {
    block_ += '"';
    for (const char c : text) {
      if (c == '"') block_ += '"';
      block_ += c;
    }
    block_ += '"';
  }

  const ByteSink& sink_;
  char delimiter_;
  std::string_view lineEnd_;
  std::string special_;
  std::string block_;
  int fields_ = 0;
  bool onlyEmpty_ = false;
};

std::string_view cellText(const Column& column, std::int32_t record, NumberBuffer& buffer) {
  const bool decimal = column.format().type == columnDecimal && !column.isEmpty(record);
  return decimal ? exactDecimalText(column.real(record), column.format().scale, buffer)
                 : column.shown(record, buffer);
}

void writeHeader(const ColumnStore& store, const CsvForm& form, CsvOutput& out) {
  const bool given = form.names.size() == static_cast<std::size_t>(store.columnCount());
  for (std::int32_t c = 0; c < store.columnCount(); ++c) {
    out.field(given ? form.names[static_cast<std::size_t>(c)] : store.column(c).format().name.toUtf8());
  }
  out.endLine();
}

void writeRows(const MemoryDataSet& rows, CsvOutput& out) {
  const ColumnStore& store = rows.store();
  NumberBuffer buffer;
  for (std::int32_t row = 1; row <= rows.rowCount(); ++row) {
    const std::int32_t record = rows.entryAt(row);
    if (record < 0 || rows.recordStatus(record) == rowDeleted) continue;
    for (std::int32_t c = 0; c < store.columnCount(); ++c)
      out.field(cellText(store.column(c), record, buffer));
    out.endLine();
  }
}

}  // namespace

void writeCsv(const MemoryDataSet& rows, const ByteSink& sink, const CsvForm& form) {
  CsvOutput out(sink, form);
  writeHeader(rows.store(), form, out);
  writeRows(rows, out);
  out.flush();
}

}  // namespace tessera
