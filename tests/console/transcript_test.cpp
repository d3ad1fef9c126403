// Runs the transcripts of this folder and compares what the console says. With TESSERA_REWRITE=1 in the
// environment they are rewritten, to be read before they are kept. A transcript is shorter than what the
// console says: a command without a reply was answered with `ok`, a value stands behind its command, events
// that follow each other share a line, equal lines are counted as in `OnChar() (x 3)`, and rows that are
// alike are told of as `row 1-6 ...`.

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "console/scratch_folder.h"
#include "console/text_diff.h"
#include "tests/support/source_path.h"
#include "tools/tessera/console.h"

namespace tessera {
namespace {

constexpr std::string_view formMark = "# form ";
constexpr std::string_view valueMark = "  = ";  // between a command and the value that it gave

// Lines with "#" are remarks and stand before a command; the first one names the form.
struct Recorded {
  std::string form;
  std::string commands;
  std::vector<std::string> lines;    // without the remarks
  std::vector<std::string> remarks;  // remarks[n] stands before command n
};

bool isCommand(std::string_view line) { return line.starts_with("> "); }

Recorded parseTranscript(const std::vector<std::string>& lines) {
  Recorded recorded;
  recorded.remarks.emplace_back();
  for (const std::string& line : lines) {
    if (line.starts_with('#')) {
      recorded.remarks.back() += line + "\n";
      if (line.starts_with(formMark)) recorded.form = line.substr(formMark.size());
      continue;
    }
    recorded.lines.push_back(line);
    if (!isCommand(line)) continue;
    recorded.commands += line.substr(2, line.find(valueMark) - 2) + "\n";
    recorded.remarks.emplace_back();
  }
  return recorded;
}

std::string countOf(int count) { return count > 1 ? " (x " + std::to_string(count) + ")" : ""; }

// Leaves the replies out that are nothing but `ok`, and counts the lines that come again and again.
std::vector<std::string> withoutRepeats(const std::vector<std::string>& lines) {
  std::vector<std::string> result;
  for (std::size_t i = 0, next = 0; i < lines.size(); i = next) {
    for (next = i + 1; next < lines.size() && !isCommand(lines[i]) && lines[next] == lines[i];) ++next;
    if (lines[i] != "ok") result.push_back(lines[i] + countOf(static_cast<int>(next - i)));
  }
  return result;
}

bool joinValue(std::string& last, const std::string& line) {
  if (!isCommand(last) || !line.starts_with("= ")) return false;
  last += "  " + line;
  return true;
}

// One line of events after the other at the same depth.
bool joinEvents(std::string& last, const std::string& line) {
  const std::size_t depth = line.find_first_not_of(' ');
  if (depth == std::string::npos || line.compare(depth, 2, "! ") != 0) return false;
  if (last.find_first_not_of(' ') != depth || last.compare(depth, 2, "! ") != 0) return false;
  last += "; " + line.substr(depth + 2);
  return true;
}

// "row 1 level 0 state 1" and the same of the next row.
bool joinRows(std::string& last, const std::string& line) {
  int first = 0, previous = 0, row = 0, behind = 0, behindLast = 0;
  if (std::sscanf(line.c_str(), "row %d%n", &row, &behind) != 1) return false;
  if (std::sscanf(last.c_str(), "row %d-%d%n", &first, &previous, &behindLast) != 2) {
    if (std::sscanf(last.c_str(), "row %d%n", &first, &behindLast) != 1) return false;
    previous = first;
  }
  const std::string rest = line.substr(static_cast<std::size_t>(behind));
  if (previous + 1 != row || last.substr(static_cast<std::size_t>(behindLast)) != rest) return false;
  last = "row " + std::to_string(first) + "-" + std::to_string(row) + rest;
  return true;
}

std::vector<std::string> folded(const std::vector<std::string>& lines) {
  std::vector<std::string> result;
  for (const std::string& line : withoutRepeats(lines)) {
    const bool isJoined =
        !result.empty() &&
        (joinValue(result.back(), line) || joinEvents(result.back(), line) || joinRows(result.back(), line));
    if (!isJoined) result.push_back(line);
  }
  return result;
}

std::string withRemarks(const Recorded& recorded, const std::vector<std::string>& lines) {
  std::string text = recorded.remarks.front();
  std::size_t command = 0;
  for (const std::string& line : lines) {
    if (isCommand(line) && command++ > 0) text += recorded.remarks[command - 1];
    text += line + "\n";
  }
  return text;
}

std::string readText(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

std::vector<std::string> names() {
  std::vector<std::string> result;
  std::istringstream list(TESSERA_TRANSCRIPTS);
  for (std::string name; std::getline(list, name, ',');) result.push_back(name);
  return result;
}

std::string pathOf(const std::string& name) { return sourcePath("tests/console/" + name + ".transcript"); }

class TranscriptTest : public testing::TestWithParam<std::string> {};

TEST_P(TranscriptTest, SaysTheSameAgain) {
  const std::string path = pathOf(GetParam());
  const Recorded recorded = parseTranscript(splitLines(readText(path)));
  ASSERT_FALSE(recorded.form.empty()) << path << " names no form";
  ASSERT_FALSE(recorded.commands.empty()) << path << " has no command";
  const ScratchFolder folder;
  auto opened = openForm(recorded.form);
  ASSERT_TRUE(opened) << opened.error().message();
  std::istringstream in(recorded.commands);
  std::ostringstream out;
  EXPECT_EQ(Console(std::move(*opened), out, {.strict = false, .echo = true}).run(in), 0);
  const std::vector<std::string> lines = folded(splitLines(out.str()));
  if (std::getenv("TESSERA_REWRITE")) {
    std::ofstream(path, std::ios::binary) << withRemarks(recorded, lines);
    GTEST_SKIP() << path << " was rewritten";
  }
  const std::string diff = unifiedDiff(recorded.lines, lines);
  EXPECT_TRUE(diff.empty()) << path << "\n" << diff;
}

INSTANTIATE_TEST_SUITE_P(Console, TranscriptTest, testing::ValuesIn(names()),
                         [](const auto& test) { return test.param; });

TEST(Transcripts, AreAllInTheList) {
  std::vector<std::string> listed = names();
  for (const auto& entry : std::filesystem::directory_iterator(sourcePath("tests/console"))) {
    if (entry.path().extension() != ".transcript") continue;
    const std::string name = entry.path().stem().string();
    EXPECT_TRUE(std::find(listed.begin(), listed.end(), name) != listed.end()) << name;
  }
}

// The blocks of a page are one session.
void checkGuide(const std::string& page, const std::string& form) {
  std::vector<std::string> lines;
  bool isInside = false;
  for (const std::string& line : splitLines(readText(sourcePath("docs/" + page)))) {
    if (line.starts_with("```")) {
      isInside = line == "```console";
    } else if (isInside) {
      lines.push_back(line);
    }
  }
  const Recorded recorded = parseTranscript(lines);
  ASSERT_FALSE(recorded.commands.empty());
  auto opened = openForm(sourcePath("examples/" + form));
  ASSERT_TRUE(opened) << opened.error().message();
  std::istringstream in(recorded.commands);
  std::ostringstream out;
  Console(std::move(*opened), out, {.strict = false, .echo = true}).run(in);
  EXPECT_EQ(unifiedDiff(recorded.lines, splitLines(out.str())), "") << page;
}

TEST(Guides, SayWhatTheConsoleSays) {
  checkGuide("editing.md", "editors.xml");
  checkGuide("console.md", "orders.xml");
}

TEST(Transcripts, FoldWhatTheConsoleSays) {
  const std::vector<std::string> lines = splitLines(
      "> a\nok\n> b\n! E(1)\n! F()\n! F()\n  ! G()\n  ! G()\n  ok\n! E(1)\nok\n> b\n= 1\n> b\nrow 9 up\nrow "
      "10 up\nrow 11 up\nrow 12 down\nrow 14 down\nerror: ok\n");
  EXPECT_EQ(
      folded(lines),
      splitLines(
          "> a\n> b\n! E(1); F() (x 2)\n  ! G() (x 2)\n  ok\n! E(1)\n> b  = 1\n> b\nrow 9-11 up\nrow 12 "
          "down\nrow 14 down\nerror: ok\n"));
}

TEST(UnifiedDiff, ShowsChangesWithTheirSurroundings) {
  struct Row {
    std::string_view expected;
    std::string_view actual;
    std::string_view diff;
  };
  const Row rows[] = {
      {"a\nb\n", "a\nb\n", ""},
      {"a\nb\nc\n", "a\nx\nc\n", " a\n-b\n+x\n c\n"},
      {"", "new\n", "+new\n"},
      {"1\n2\n3\n4\n5\nold\n", "1\n2\n3\n4\n5\n", "@@\n 3\n 4\n 5\n-old\n"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(unifiedDiff(splitLines(row.expected), splitLines(row.actual)), row.diff);
  }
}

}  // namespace
}  // namespace tessera
