// Column lists written as short text, for tests of geometry.

#pragma once

#include <sstream>
#include <string>

#include "config/column_record.h"
#include "shared/utf.h"

namespace tessera::test {

// One column a line: "ID left right top bottom [fix] [hidden]": header and view have the same left and right,
// the header is 20 high, the view stands from top to bottom.
inline ColumnList columnsOf(const std::string& text) {
  ColumnList columns;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string id;
    ColumnRecord column;
    Rect& view = column.view.rect;
    if (!(words >> id >> view.left >> view.right >> view.top >> view.bottom)) continue;
    column.id = XString::fromNarrow(id);
    column.refColumnId = column.id;
    column.header.rect = {view.left, 0, view.right, 20};
    for (std::string word; words >> word;) {
      if (word == "fix") column.header.fix = true;
      if (word == "hidden") column.viewVisible = false;
    }
    columns.addTail(column);
  }
  return columns;
}

// "ID:left-right" of every header, in list order.
inline std::string headersOf(const ColumnList& columns) {
  std::ostringstream text;
  for (const ColumnRecord& column : columns) {
    text << (text.tellp() > 0 ? " " : "") << utf8FromUtf16(column.id) << ':' << column.header.rect.left << '-'
         << column.header.rect.right;
  }
  return text.str();
}

}  // namespace tessera::test
