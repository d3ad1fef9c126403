// The command line of the program.

#pragma once

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

// 0; 1 after an error in a strict session; 2 for a command line that is not understood, input that cannot be
// read and output that cannot be written, with one message. `arguments` come without the program's name.
int runProgram(const std::vector<std::string>& arguments, ProgramStreams streams);

}  // namespace tessera
