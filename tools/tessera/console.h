// The console: obeys one command a line.

#pragma once

#include <istream>
#include <ostream>

#include "tools/tessera/commands.h"
#include "tools/tessera/transcript.h"

namespace tessera {

struct ConsoleOptions {
  bool strict = false;  // the first error ends the session
  bool echo = false;    // commands stand before their replies
};

class Console {
 public:
  // Events that fire while the form comes to life are told of before any command.
  Console(OpenedForm opened, std::ostream& out, ConsoleOptions options);

  // 0 at the end of the input, 1 after an error in a strict session.
  int run(std::istream& in);

 private:
  void execute(const std::string& line);

  ConsoleOptions options_;
  Transcript transcript_;
  EventHandlers handlers_;
  FormHost host_;
  CommandContext context_{host_, handlers_};
};

}  // namespace tessera
