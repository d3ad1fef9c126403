// Runs the transcripts of this folder and compares what the console says. With TESSERA_REWRITE=1 in the
// environment they are rewritten, to be read before they are kept.

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
    recorded.commands += line.substr(2) + "\n";
    recorded.remarks.emplace_back();
  }
  return recorded;
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
  const std::vector<std::string> lines = splitLines(out.str());
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

// The blocks of the page are one session.
TEST(EditingGuide, SaysWhatTheConsoleSays) {
  std::vector<std::string> lines;
  bool isInside = false;
  for (const std::string& line : splitLines(readText(sourcePath("docs/editing.md")))) {
    if (line.starts_with("```")) {
      isInside = line == "```console";
    } else if (isInside) {
      lines.push_back(line);
    }
  }
  const Recorded recorded = parseTranscript(lines);
  ASSERT_FALSE(recorded.commands.empty());
  auto opened = openForm(sourcePath("examples/editors.xml"));
  ASSERT_TRUE(opened) << opened.error().message();
  std::istringstream in(recorded.commands);
  std::ostringstream out;
  Console(std::move(*opened), out, {.strict = false, .echo = true}).run(in);
  EXPECT_EQ(unifiedDiff(recorded.lines, splitLines(out.str())), "");
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
