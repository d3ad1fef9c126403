// Expressions over the sample rows, and what they give.

#pragma once

#include "expr/sample_rows.h"
#include "tests/support/text_rows.h"

namespace tessera::test {

class SampleTest : public testing::Test {
 protected:
  // Messages stand behind each other; a date that is none has a short one.
  void expect(const std::string& text, std::string_view result) {
    std::string found = sample.evaluate(text);
    if (found == "! Invalid arguments for function DATE()") found = "! no date";
    if (found.ends_with('\n')) found.pop_back();
    std::replace(found.begin(), found.end(), '\n', ' ');
    EXPECT_EQ(found, result) << text;
  }
  void check(std::string_view table) {
    for (const TextRow& row : textRows(table)) expect(row.what, row.result);
  }
  SampleEngine sample;
};

}  // namespace tessera::test
