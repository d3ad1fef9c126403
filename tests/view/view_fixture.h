// A form in the headless host, for what of the viewer needs no window of the desktop.

#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "tests/support/source_path.h"
#include "tools/tessera/form_host.h"
#include "tools/tessera/open_form.h"

namespace tessera::testing {

class OpenGrid {
 public:
  // A file below examples/, or any other with its whole path.
  explicit OpenGrid(const std::string& file, ITesseraEvents* events = nullptr) {
    auto opened = openForm(file.starts_with('/') ? file : sourcePath("examples/" + file));
    EXPECT_TRUE(opened) << (opened ? "" : opened.error().message());
    rows_ = opened->components.dataSets.front().rows;
    host_ = std::make_unique<FormHost>(std::move(*opened), events);
  }

  Tessera& grid() { return host_->control(); }
  FormHost& host() { return *host_; }
  std::shared_ptr<MemoryDataSet> rows() { return rows_; }

  void focus(std::int32_t row, const std::string& column) {
    grid().put_ColumnPosition(XString::fromNarrow(column));
    grid().put_RowPosition(row);
  }
  std::string place() {
    std::int32_t row = 0;
    XString column;
    grid().get_RowPosition(row);
    grid().get_ColumnPosition(column);
    return column.toUtf8() + " " + std::to_string(row);
  }
  // As the data set has it.
  std::string stored(std::int32_t row, const std::string& name) {
    XString text;
    rows_->GetTextByName(row, XString::fromNarrow(name), text);
    return text.toUtf8();
  }
  std::int32_t rowCount() { return rows_->rowCount(); }

 private:
  std::shared_ptr<MemoryDataSet> rows_;
  std::unique_ptr<FormHost> host_;
};

}  // namespace tessera::testing
