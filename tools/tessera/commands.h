// The commands of the console.

#pragma once

#include <string_view>
#include <vector>

#include "tools/tessera/command_line.h"
#include "tools/tessera/event_handlers.h"
#include "tools/tessera/form_host.h"
#include "tools/tessera/reply.h"

namespace tessera {

// What commands work on.
struct CommandContext {
  FormHost& host;
  EventHandlers& handlers;
  bool quit = false;
};

using Arguments = std::vector<Token>;

// A command takes its arguments as tokens or, when it reads them in its own way, as the rest of the line.
struct CommandRow {
  std::string_view name;
  std::string_view usage;  // behind the name
  std::size_t least;       // tokens
  std::size_t most;
  Reply (*run)(CommandContext& context, const Arguments& arguments);
  Reply (*runLine)(CommandContext& context, std::string_view rest);
};

// Null when there is no such command.
const CommandRow* findCommand(std::string_view name);

// Takes one line apart and runs it, and then what was posted meanwhile: whoever reads the reply has all that
// the command brought about. A handler that wants it earlier, in the midst of a command, says `wait`.
Reply runCommandLine(CommandContext& context, std::string_view line);

}  // namespace tessera
