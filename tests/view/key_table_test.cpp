#include "tools/view/key_table.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

#include "tests/support/source_path.h"
#include "tools/view/viewer_window.h"

namespace tessera {
namespace {

// The help window and the handbook tell the same.
TEST(KeyTable, IsThatOfTheHandbook) {
  std::ifstream file(sourcePath("docs/viewer.md"));
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  std::string expected;
  for (const KeyRow& row : keyTable) {
    expected.append("| ").append(row.keys).append(" | ").append(row.action).append(" |\n");
  }
  EXPECT_NE(text.find(expected), std::string::npos) << "docs/viewer.md lacks this table:\n" << expected;
}

bool isListed(std::string_view keys) {
  for (const KeyRow& row : keyTable) {
    for (std::size_t from = 0; from <= row.keys.size();) {
      const std::size_t end = std::min(row.keys.find(", ", from), row.keys.size());
      if (row.keys.substr(from, end - from) == keys) return true;
      from = end + 2;
    }
  }
  return false;
}

TEST(KeyTable, HasEveryShortcutOfTheMenus) {
  int shortcuts = 0;
  for (const ViewerWindow::ActionRow& row : ViewerWindow::actionRows()) {
    std::string_view keys = row.keys;
    if (keys.starts_with('=')) keys.remove_prefix(1);
    if (keys.empty()) continue;
    ++shortcuts;
    EXPECT_TRUE(isListed(keys)) << keys << " of " << row.text;
  }
  EXPECT_GE(shortcuts, 10);
}

}  // namespace
}  // namespace tessera
