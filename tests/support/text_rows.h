// The rows of a test's table, written as text: `what => result`, with ` | ` or the end of a line between two.

#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace tessera::test {

struct TextRow {
  std::string what, result;
};

inline std::vector<TextRow> textRows(std::string_view table) {
  std::vector<TextRow> rows;
  for (std::size_t at = 0; at < table.size();) {
    const std::size_t bar = table.find(" | ", at), end = std::min({bar, table.find('\n', at), table.size()});
    const std::string_view row = table.substr(at, end - at);
    at = end + (end == bar ? 3 : 1);
    if (row.empty()) continue;
    const std::size_t arrow = row.find(" =>");
    EXPECT_NE(arrow, row.npos) << row;
    rows.push_back({std::string(row.substr(0, arrow)),
                    std::string(row.substr(std::min(row.size(), arrow == row.npos ? arrow : arrow + 4)))});
  }
  EXPECT_FALSE(rows.empty());
  return rows;
}

}  // namespace tessera::test
