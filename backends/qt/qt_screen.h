// The system colours and the resolution as Qt knows them.

#pragma once

namespace tessera {

// The process's screen becomes the desktop's: the application's palette and its first monitor. Answers how
// many different ones there have been.
int takeDesktopScreen();

}  // namespace tessera
