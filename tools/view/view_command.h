// The command `tessera view`.

#pragma once

#include "tools/tessera/program.h"

namespace tessera {

// Needs a display; without one it says so and returns 2, as for a file that cannot be read.
int runView(const ViewOptions& options, ProgramStreams streams);

}  // namespace tessera
