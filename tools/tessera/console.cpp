#include "tools/tessera/console.h"

#include <string>

namespace tessera {

Console::Console(OpenedForm opened, std::ostream& out, ConsoleOptions options)
    : options_(options),
      transcript_(out, options.strict),
      handlers_(transcript_, [this](const std::string& command) { execute(command); }),
      host_(std::move(opened), &handlers_) {
  if (host_.window()) host_.window()->takeCalls();
}

int Console::run(std::istream& in) {
  std::string line;
  while (!context_.quit && !transcript_.ended() && std::getline(in, line)) {
    if (line.ends_with('\r')) line.pop_back();
    if (line.starts_with('#') || line.find_first_not_of(" \t") == std::string::npos) continue;
    if (options_.echo) transcript_.line("> " + line);
    execute(line);
    host_.forgetWindows();
    transcript_.flush();
  }
  return transcript_.ended() ? 1 : 0;
}

// The events of a command have been told of when its reply is there.
void Console::execute(const std::string& line) {
  const Reply reply = runCommandLine(context_, line);
  for (const std::string& each : reply.lines) transcript_.line(each);
  if (reply.isError) {
    transcript_.errorLine(reply.last);
  } else {
    transcript_.line(reply.last);
  }
}

}  // namespace tessera
