#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include "tools/tessera/program.h"

namespace tessera {
namespace {

struct Row {
  std::vector<std::string> arguments;
  bool hasDesktop;
  int code;
  std::string seen;  // what the window was given: "FILE STATE"
  std::string err;
};

TEST(ViewCommand, IsHandedToTheDesktopIfThereIsOne) {
  const std::string none = "tessera: this build has no desktop: it was configured with TESSERA_QT=OFF\n";
  const Row rows[] = {
      {{"view", "a.csv"}, true, 7, "a.csv ", ""},
      // Whether it can be read is for the window to find out.
      {{"view", "gone.sqlite:t", "--state", "s.json"}, true, 7, "gone.sqlite:t s.json", ""},
      {{"view", "a.csv"}, false, 2, "", none},
      {{"view", "a.csv", "b.csv"}, true, 2, "", "tessera: The following argument was not expected: b.csv\n"},
  };
  for (const Row& row : rows) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    std::string seen;
    const ViewCommand view = [&](const ViewOptions& options, ProgramStreams) {
      seen = options.file + " " + options.statePath;
      return 7;
    };
    EXPECT_EQ(runProgram(row.arguments, {in, out, err}, row.hasDesktop ? view : nullptr), row.code);
    EXPECT_EQ(seen, row.seen);
    EXPECT_EQ(err.str(), row.err);
    EXPECT_EQ(out.str(), "");
  }
}

}  // namespace
}  // namespace tessera
