// The commands that stand for a person: mouse, keyboard, focus, time, and the windows that these open.

#pragma once

#include <span>

#include "tools/tessera/commands.h"

namespace tessera {

std::span<const CommandRow> inputCommands();

}  // namespace tessera
