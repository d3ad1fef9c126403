// The program.

#include <exception>
#include <iostream>

#include "tools/tessera/program.h"
#ifdef TESSERA_DESKTOP
#include "tools/view/view_command.h"
#endif

namespace {

tessera::ViewCommand viewOfThisBuild() {
#ifdef TESSERA_DESKTOP
  return tessera::runView;
#else
  return nullptr;
#endif
}

}  // namespace

int main(int argc, char** argv) {
  try {
    std::ios::sync_with_stdio(false);
    return tessera::runProgram({argv + 1, argv + argc}, {std::cin, std::cout, std::cerr}, viewOfThisBuild());
  } catch (const std::exception& error) {
    std::cerr << "tessera: " << error.what() << '\n';
    return 2;
  }
}
