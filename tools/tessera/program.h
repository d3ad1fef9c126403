// The command line of the program.

#pragma once

#include <functional>
#include <istream>
#include <ostream>
#include <string>
#include <vector>

namespace tessera {

struct ProgramStreams {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
};

struct ViewOptions {
  std::string file;       // as `render` takes it; empty: nothing is open at the start
  std::string statePath;  // where the window keeps its state as text; empty: nowhere
};

// Shows the window until the person closes it; the program's exit code.
using ViewCommand = std::function<int(const ViewOptions& options, ProgramStreams streams)>;

// 0; 1 after an error in a strict session; 2 for a command line that is not understood, input that cannot be
// read and output that cannot be written, with one message. `arguments` come without the program's name.
// `view` is null in a build without a desktop.
int runProgram(const std::vector<std::string>& arguments, ProgramStreams streams,
               const ViewCommand& view = nullptr);

}  // namespace tessera
