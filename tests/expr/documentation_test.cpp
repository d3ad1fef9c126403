// The function table, its examples and the documentation that is made from it. With TESSERA_REWRITE=1 in the
// environment the documentation is rewritten.

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

#include "expr/function_help.h"
#include "expr/sample_rows.h"
#include "tests/support/source_path.h"

namespace tessera::test {
namespace {

constexpr std::string_view mark = "<!-- functions: made from the function table by tests/expr -->\n";
const std::string path = sourcePath("docs/expressions.md");

std::string readText() {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

TEST(Documentation, HoldsTheFunctionTable) {
  const std::string present = readText();
  const std::size_t at = present.find(mark);
  ASSERT_NE(at, present.npos);
  const std::string expected = present.substr(0, at) + std::string(mark) + functionReference();
  if (std::getenv("TESSERA_REWRITE")) {
    std::ofstream(path, std::ios::binary) << expected;
    GTEST_SKIP() << path << " was rewritten";
  }
  EXPECT_EQ(present, expected);
}

TEST(Documentation, ExamplesGiveWhatTheySay) {
  SampleEngine sample;
  for (const XExprFunction& function : exprFunctions()) {
    EXPECT_EQ(sample.evaluate(function.example), function.exampleResult) << function.example;
  }
}

// An example that calls another function proves nothing. COLUMN cannot be called by name.
TEST(Documentation, ExamplesCallTheirFunction) {
  std::set<std::string_view> names;
  for (const XExprFunction& function : exprFunctions()) {
    EXPECT_TRUE(names.insert(function.name).second) << function.name;
    const std::string called = std::string(function.name) + "(";
    if (!function.handler) continue;
    EXPECT_TRUE(function.example.starts_with(called)) << function.name;
    EXPECT_EQ(findFunction(utf16FromUtf8(function.name)), &function) << function.name;
  }
}

}  // namespace
}  // namespace tessera::test
