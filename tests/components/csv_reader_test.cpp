#include "components/csv_reader.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace tessera {
namespace {

using std::string_literals::operator""s;

// Records as "a|b/c|d", a fault as "!LINE REASON" behind them.
std::string readAll(const std::string& bytes) {
  std::istringstream in(bytes);
  CsvReader reader(in);
  std::string all;
  const auto add = [&] {
    if (!all.empty()) all += '/';
    for (std::size_t i = 0; i < reader.fields().size(); ++i) (all += i > 0 ? "|" : "") += reader.fields()[i];
  };
  if (reader.readHeader()) {
    add();
    while (reader.next()) add();
  }
  if (!reader.fault().empty()) all += "!" + std::to_string(reader.line()) + " " + reader.fault();
  return all;
}

TEST(CsvReader, RecordsAndFaults) {
  const std::pair<std::string, std::string> cases[] = {
      {"a,b\n1,2", "a|b/1|2"},
      {"a,b\r\n1,2\r\n", "a|b/1|2"},
      {"a,b\n1,\n,2\n,", "a|b/1|/|2/|"},
      {"\xEF\xBB\xBF"
       "a;b\n1,5;2\n",
       "a|b/1,5|2"},
      {"a\tb,c\td\n1\t2\t3\n", "a|b,c|d/1|2|3"},
      {"\"a,b,c\";d\n1;2\n", "a,b,c|d/1|2"},
      {"a\n\n1\n", "a//1"},
      {"a,b\n\"\"\"\",\"\"\"\"\"\"\n\"\",\"x\"", "a|b/\"|\"\"/|x"},
      {"a,b\n\"line 1\nline, 2\r\n\",2\n3,4\n", "a|b/line 1\nline, 2\r\n|2/3|4"},
      {"a\n", "a"},
      {"", "!1 it is empty, without even a header line"},
      {"\xEF\xBB\xBF", "!1 it is empty, without even a header line"},
      {"a,b\n1,2\n3\n", "a|b/1|2!3 1 field instead of 2"},
      {"a,b\n1,2,3\n", "a|b!2 3 fields instead of 2"},
      {"a,b\n\n", "a|b!2 1 field instead of 2"},
      {"a,b\n\"x\ny\",1\n2\n", "a|b/x\ny|1!4 1 field instead of 2"},
      {"a,b\n\"1\n1\",\"2\n3,4\n", "a|b!3 a quote that is never closed"},
      {"a,b\n1,\"2\" \n", "a|b!2 text behind a closing quote"},
      {"a,b\n1,2\"3\n", "a|b!2 a quote in a field that does not start with one"},
      {"a,b\n1,2\r3,4\n", "a|b!2 a carriage return without a line feed"},
      {"a,b\n1,2\r", "a|b!2 a carriage return without a line feed"},
      {"a,b\n\"1\n\0\",2\n"s, "a|b!3 a NUL character"},
      {"a,b\n\"1\n2\n\xFF\",2\n", "a|b!4 bytes that are not UTF-8"},
      {"a,b\n1,\xED\xA0\x80\n", "a|b!2 bytes that are not UTF-8"},
      {"\xFF\xFE"
       "a\0\n\0"s,
       "!1 a NUL character"},
  };
  for (const auto& [bytes, expected] : cases) EXPECT_EQ(readAll(bytes), expected) << bytes;
}

// Every place of a record can fall on the end of a block.
TEST(CsvReader, RecordsAcrossBlocks) {
  const std::string tail = "\"q\"\"\r\n,\",\xE2\x82\xAC\r\n,\"\"\r\nz,\"y\"";
  for (std::size_t shift = 0; shift <= tail.size(); ++shift) {
    const std::string filler((std::size_t{1} << 20) - 8 - shift, 'x');
    const std::string expected = "a|b/" + filler + "|1/q\"\r\n,|\xE2\x82\xAC/|/z|y";
    ASSERT_EQ(readAll("a,b\n" + filler + ",1\r\n" + tail), expected) << shift;
  }
  // And one that is longer than a block.
  const std::string huge(std::size_t{5} << 20, 'y');
  EXPECT_EQ(readAll("a,b\n\"" + huge + "\",2\n3,4\n"), "a|b/" + huge + "|2/3|4");
}

}  // namespace
}  // namespace tessera
