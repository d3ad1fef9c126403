#include "tools/view/key_table.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace tessera {
namespace {

// The help window and the handbook tell the same.
TEST(KeyTable, IsThatOfTheHandbook) {
  std::ifstream file(TESSERA_SOURCE_DIR "/docs/viewer.md");
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  std::string expected;
  for (const KeyRow& row : keyTable) {
    expected.append("| ").append(row.keys).append(" | ").append(row.action).append(" |\n");
  }
  EXPECT_NE(text.find(expected), std::string::npos) << "docs/viewer.md lacks this table:\n" << expected;
}

}  // namespace
}  // namespace tessera
