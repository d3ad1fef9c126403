// The program.

#include <exception>
#include <iostream>

#include "tools/tessera/program.h"

int main(int argc, char** argv) {
  try {
    std::ios::sync_with_stdio(false);
    return tessera::runProgram({argv + 1, argv + argc}, {std::cin, std::cout, std::cerr});
  } catch (const std::exception& error) {
    std::cerr << "tessera: " << error.what() << '\n';
    return 2;
  }
}
