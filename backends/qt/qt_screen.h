// The system colours and the resolution as Qt knows them.

#pragma once

namespace tessera {

// The process's screen becomes the desktop's: the application's palette and its first monitor. A dark palette
// counts as the standard one.
void takeDesktopScreen();

}  // namespace tessera
